// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The direction of the Kaaba.
#include "astro/FastAstro.h"
#include "astro/angles.h"

namespace quode {

KiblePair FastAstro::KibleAcisi(double latitude, double longitude) {
    constexpr double kaabaLongitude = 39.81999969482422, kaabaTangent = 0.39249985828970657;
    constexpr double antipodalLongitude = -140.1699981689453, pi = 3.1415927410125732;
    const double difference = kaabaLongitude - longitude;
    const double angle =
        std::atan(sinDeg(difference) / (cosDeg(difference) * sinDeg(latitude) - cosDeg(latitude) * kaabaTangent));
    const double q = realOr(0.0, angle);  // at the Kaaba itself there is no direction

    KiblePair kible;
    kible.i = realOr(0.0, std::atan(1.0 / (sinDeg(latitude) * std::tan(q < 0.0 ? pi - q : q))));
    kible.K = q * degreesPerRadian;
    const bool westOfKaaba = longitude > antipodalLongitude && longitude < kaabaLongitude;
    if (westOfKaaba && kible.K > 0.0) kible.K += 180.0;
    if (!westOfKaaba && kible.K < 0.0) kible.K -= 180.0;
    return kible;
}

}  // namespace quode
