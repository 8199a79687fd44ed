// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>

namespace quode {

/// The clock of a zone for the engine: the standard offset and the rule by which whole days are summer time.
///
/// Months count from 0 = January. A rule day up to 30 is a day of the month counted from 0; from 31 on it is a
/// weekday, see `weekdayRule`. The start day is summer time from midnight on, the stop day is not. A start month that is
/// not before the stop month is a rule of the southern hemisphere. Fixed values: rule days are stored.
struct ZoneRule {
    double gmt = 0.0;    ///< hours east of Greenwich without summer time
    bool dst = false;    ///< the zone has summer time; else the rest is 0
    int startMonth = 0;  ///< 0..11
    int startDay = 0;    ///< rule day
    int stopMonth = 0;   ///< 0..11
    int stopDay = 0;     ///< rule day
    int hour = 0;        ///< hours by which the clocks are put forward

    friend bool operator==(const ZoneRule&, const ZoneRule&) = default;
};

/// A change of the clocks: the first day of the new time.
struct ClockChange {
    std::chrono::year_month_day date;
    bool toSummerTime = false;
};

/// The rule day of a weekday.
/// @param weekday     0 = Sunday to 6 = Saturday
/// @param occurrence  in the month: 0 first to 3 fourth, 4 last
constexpr int weekdayRule(int weekday, int occurrence) {
    return 31 + 5 * weekday + occurrence;
}

/// True when the engine can use the rule: offset within -14..14 hours, months within 0..11, rule days within 0..65.
bool isValid(const ZoneRule& rule);

/// True when the engine counts a day as summer time; false for an invalid date.
bool isSummerTime(const ZoneRule& rule, std::chrono::year_month_day date);

/// Hours east of Greenwich that the engine uses on a day, summer time included.
double offsetOn(const ZoneRule& rule, std::chrono::year_month_day date);

}  // namespace quode
