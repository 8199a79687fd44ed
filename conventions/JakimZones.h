// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace quode::conventions {

/// A zone of Malaysia and the point from which its times are computed.
struct JakimZone {
    std::string_view key;                    ///< "WLY01"
    std::string_view area;                   ///< state and districts
    double latitude = 0.0, longitude = 0.0;  ///< degrees
    double sunriseLongitude = 0.0;           ///< degrees; of the point of sunrise
    double ishaAngle = 18.0;                 ///< degrees
    bool isMountain = false;                 ///< its table follows no single rule
};

/// A town or district seat of a zone.
struct JakimSeat {
    std::string_view zone, name;             ///< key of the zone; name of the town
    double latitude = 0.0, longitude = 0.0;  ///< degrees
};

/// All zones.
std::span<const JakimZone> jakimZones();

/// The seats of all zones.
std::span<const JakimSeat> jakimSeats();

}  // namespace quode::conventions
