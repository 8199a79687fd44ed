// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Dates as they are written on the command line: YYYY-MM-DD, years 1 to 9999. Days before 15 October 1582 are of the
// Julian calendar.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "astro/VAKDate.h"
#include "common/civil_date.h"

namespace quode::app {

struct Month {
    int year = 0;
    int month = 0;  ///< 1..12
};

/// Reads a day, a month (YYYY-MM) or a year. Throws `Failure` (usage), saying what is impossible.
VAKDate parseDate(std::string_view text);
Month parseMonth(std::string_view text);
int parseYear(std::string_view text);

/// Reads a Hijri day of the table, YYYY-MM-DD. Throws `Failure`: usage for an impossible day, notFound outside the
/// table.
VAKDate parseHijriDate(std::string_view text);

/// Reads a moment such as "2026-11-21T04:00:00Z" or "...+03:00". Throws `Failure` (usage).
std::chrono::sys_seconds parseMoment(std::string_view text);

/// The days of a month in their order; in October 1582 those that the calendar had.
std::vector<VAKDate> daysOf(const Month& month);

/// "2026-11-21T04:00:00Z"
std::string isoMoment(std::chrono::sys_seconds moment);

/// The instant of a Julian day in universal time, to the second.
std::chrono::sys_seconds instantOfJulianDay(double julianDay);

/// True for the days up to 4 October 1582.
bool isJulianCalendar(const VAKDate& date);

/// 0 = Sunday .. 6 = Saturday.
int weekdayOf(const VAKDate& date);

}  // namespace quode::app
