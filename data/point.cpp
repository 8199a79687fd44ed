// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/point.h"

namespace quode {

CityRecord recordOfPoint(double latitude, double longitude, const NearestCity& nearest) {
    constexpr double sameTerrainKm = 15.0;
    CityRecord point;
    point.latitude = latitude;
    point.longitude = longitude;
    point.nearestCountry = nearest.city.countryCode;
    point.zone = nearest.city.zone;
    point.rule = nearest.city.rule;
    point.known = nearest.city.known;
    point.temkin = nearest.city.temkin;
    if (nearest.distanceKm < sameTerrainKm) point.choice.height = nearest.city.elevation.value_or(0);
    return point;
}

}  // namespace quode
