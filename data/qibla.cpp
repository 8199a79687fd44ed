// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/qibla.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quode {

double bearingOf(const KiblePair& kible) {
    return kible.K > 0.0 ? 360.0 - kible.K : std::abs(kible.K);
}

double distanceToKaaba(double latitude, double longitude) {
    constexpr double earthRadiusKm = 6371.0;
    const auto radians = [](double degrees) { return degrees * std::numbers::pi / 180.0; };
    const double halfLatitude = std::sin(radians(latitude - kaabaLatitude) / 2.0);
    const double halfLongitude = std::sin(radians(longitude - kaabaLongitude) / 2.0);
    const double h = halfLatitude * halfLatitude +
                     std::cos(radians(latitude)) * std::cos(radians(kaabaLatitude)) * halfLongitude * halfLongitude;
    return 2.0 * earthRadiusKm * std::asin(std::min(1.0, std::sqrt(h)));
}

}  // namespace quode
