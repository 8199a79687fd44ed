// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The times of a day by a convention.
#pragma once

#include <array>

#include "conventions/Convention.h"
#include "conventions/Method.h"
#include "conventions/UsedPoint.h"

namespace quode::conventions {

/// Where and when, on which clock.
struct Request {
    double latitude = 0.0, longitude = 0.0;  ///< degrees
    double height = 0.0;                     ///< metres above sea level
    bool heightIsOfUser = false;             ///< the user has given it; else it is the database's
    int year = 2000, month = 1, day = 1;     ///< the civil day
    double offset = 0.0;                     ///< hours of its clock east of Greenwich
};

/// Why a time is what it is.
enum class Origin {
    rule,           ///< the rule of the convention, as it stands
    highLatitude,   ///< the rule for high latitudes: the angle is not reached, or too far into the night
    otherLatitude,  ///< computed for a lower latitude: the Sun does not rise and set that day
    missing,        ///< there is none
};

struct ConventionTime {
    double hours = -1.0;  ///< of the clock, counted from 0 h of the day, on a whole minute; -1.0 when missing
    double exact = -1.0;  ///< before rounding and the user's minutes
    Origin origin = Origin::missing;

    bool exists() const { return origin != Origin::missing; }
};

struct ConventionDay {
    std::array<ConventionTime, prayerCount> times;
    ConventionTime asrStandard, asrHanafi;  ///< by both shadows
    UsedPoint point;
    double usedLatitude = 0.0;  ///< differs from the point's where the Sun does not rise and set
    bool isOtherLatitude = false;
    bool isRamadan = false;  ///< by the Umm al-Qura calendar

    const ConventionTime& time(Prayer prayer) const { return times[static_cast<std::size_t>(prayer)]; }
};

/// Computes a day. The method's convention must not be one that the engine computes.
ConventionDay computeDay(const Method& method, const Request& request);
ConventionDay computeDay(const Convention& convention, const Request& request, const Method& method = {});

}  // namespace quode::conventions
