// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace quode::conventions {

/// A zone of Malaysia and the point from which its times are computed.
struct JakimZone {
    std::string_view key;   ///< "WLY01"
    std::string_view area;  ///< state and districts
    double latitude = 0.0, longitude = 0.0;
    double sunriseLongitude = 0.0;
    double ishaAngle = 18.0;
    bool isMountain = false;
};

/// A town or district seat of a zone.
struct JakimSeat {
    std::string_view zone, name;
    double latitude = 0.0, longitude = 0.0;
};

std::span<const JakimZone> jakimZones();
std::span<const JakimSeat> jakimSeats();

}  // namespace quode::conventions
