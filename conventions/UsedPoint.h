// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "conventions/Convention.h"

namespace quode::conventions {

/// The point for which the times of a place are computed.
struct UsedPoint {
    double latitude = 0.0, longitude = 0.0;  ///< degrees
    double sunriseLongitude = 0.0;           ///< degrees; of the point for which sunrise is computed
    std::optional<double> ishaAngle;         ///< degrees; of a zone with an angle of its own
    std::string name;                        ///< key of the zone or name of the point; empty for the place itself
    bool isCertain = true;                   ///< false where the zone is a guess, or follows no single rule
};

/// The point that a convention uses for a place.
/// @param latitude,longitude  degrees, north and east positive
/// @param zone                the key of the zone to use; empty or unknown: that of the place
/// @param country             ISO 3166-1 alpha-2 code of the place; empty where unknown. The zone of a place abroad is
///                            not certain.
UsedPoint usedPoint(const Convention& convention, double latitude, double longitude, std::string_view zone = {},
                    std::string_view country = {});

/// The distance of two points along the great circle, on a sphere of radius 6371 km.
/// @return kilometres
double distanceKm(double latitude1, double longitude1, double latitude2, double longitude2);

}  // namespace quode::conventions
