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
    double sunriseLongitude = 0.0;           ///< of the point that sunrise is computed for
    std::optional<double> ishaAngle;         ///< of a zone that differs
    std::string name;                        ///< of the zone or point; empty for the place itself
    bool isCertain = true;                   ///< false where the zone was guessed, or follows no single rule
};

/// The point that a convention uses for a place.
/// @param zone  the key of the zone to use; empty: that of the place
UsedPoint usedPoint(const Convention& convention, double latitude, double longitude, std::string_view zone = {});

/// Kilometres along the great circle.
double distanceKm(double latitude1, double longitude1, double latitude2, double longitude2);

}  // namespace quode::conventions
