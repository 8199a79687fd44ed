// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The times of a day by a convention.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "conventions/Convention.h"
#include "conventions/Method.h"
#include "conventions/UsedPoint.h"

namespace quode::conventions {

/// A place, a civil day and its clock.
struct Request {
    double latitude = 0.0, longitude = 0.0;  ///< degrees
    double height = 0.0;                     ///< metres above sea level
    bool heightIsOfUser = false;             ///< the height is the user's; else the city database's
    int year = 2000, month = 1, day = 1;     ///< the civil day
    double offset = 0.0;                     ///< hours of the day's clock east of Greenwich
    std::string_view country = {};           ///< ISO 3166-1 alpha-2 code; empty where unknown
};

/// Where a time comes from.
enum class Origin {
    rule,           ///< the rule of the convention
    highLatitude,   ///< the rule for high latitudes: the angle is not reached, or too far into the night
    otherLatitude,  ///< computed for a lower latitude: the Sun does not rise and set that day
    missing,        ///< the time does not exist
};

/// What users need to know of a time beside its origin.
enum class Caution {
    none,
    outOfOrder,      ///< before a time that it follows: added minutes are longer than the time between the two
    formerAngle,     ///< by the authority's angle of earlier years
    unknownRamadan,  ///< the date is outside the calendar that tells whether it lies in Ramadan
};

/// One time of a day.
struct ConventionTime {
    double hours = -1.0;  ///< of the clock, counted from 0 h of the day, on a whole minute; -1.0 when missing
    double exact = -1.0;  ///< the same before rounding and the user's minutes
    Origin origin = Origin::missing;
    Caution caution = Caution::none;

    /// False when there is no such time that day.
    bool exists() const { return origin != Origin::missing; }
};

/// The times of a day.
struct ConventionDay {
    std::array<ConventionTime, mainPrayerCount> times;  ///< by `Prayer`
    ConventionTime asrStandard, asrHanafi;              ///< by both shadows
    std::optional<double> nightBegin;  ///< hours of the clock, where the night does not begin with Maghrib
    UsedPoint point;                   ///< the point computed for
    double usedLatitude = 0.0;         ///< degrees; differs from the point's where the Sun does not rise and set
    bool isOtherLatitude = false;      ///< `usedLatitude` differs
    bool isRamadan = false;            ///< by the Umm al-Qura calendar

    /// The time of a prayer.
    const ConventionTime& time(Prayer prayer) const { return times[indexOf(prayer)]; }
};

/// Computes a day by a method. Nothing throws. The convention must not be one that the engine computes, like the default
/// (`Computation::engine`), whose record has no rules; `computeCityDay` ("data/city_day.h") serves every method. A method
/// with an unknown key counts as the default convention.
///
/// @code
///   using namespace quode::conventions;
///   Method method;
///   method.key = "jakim";
///   const Request kualaLumpur{3.139, 101.687, 0.0, false, 2026, 3, 21, 8.0};  // UTC+8
///   const ConventionTime fajr = computeDay(method, kualaLumpur).time(Prayer::fajr);
///   if (fajr.exists()) std::printf("Fajr %.4f h\n", fajr.hours);
/// @endcode
///
/// Accuracy: docs/conventions.md compares the times with published rows.
ConventionDay computeDay(const Method& method, const Request& request);

/// The same by a convention, which already has the changes of the method, and the method's adjustments and zone.
ConventionDay computeDay(const Convention& convention, const Request& request, const Method& method = {});

}  // namespace quode::conventions
