// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Conversions between a date record, a civil date of the standard library, a count of days and the text of a date; the
// lengths of months and days. Nothing throws.
#pragma once

#include <chrono>
#include <string>

#include "astro/VAKDate.h"
#include "platform/Clock.h"

namespace quode {

inline constexpr int minutesPerHour = 60, minutesPerDay = 1440;

/// The minute of its own day, 0 to 1439, of a minute that may be of a neighbouring day.
constexpr int minuteOfDay(int minute) {
    return (minute % minutesPerDay + minutesPerDay) % minutesPerDay;
}

/// The date with the numbers of a record; the time of day is dropped.
std::chrono::year_month_day civilDate(const VAKDate& date);

/// The day of a record in the proleptic Gregorian calendar.
std::chrono::sys_days dayOf(const VAKDate& date);

/// The record of a day, at 0 h.
VAKDate recordOf(std::chrono::sys_days day);

/// The record of a moment of a wall clock, in seconds since 1970 on that clock.
VAKDate recordOf(std::chrono::sys_seconds local);

/// The record of a wall clock.
VAKDate recordOf(const CivilTime& time);

/// True for a year of 366 days: every fourth year of the Julian calendar, which ended on 4 October 1582, then by the
/// Gregorian rule.
bool isLeapYear(int year);

/// The number of the last day of a month. October 1582 has 31, although ten days in it were skipped.
/// @param month  1 to 12
int daysInMonth(int year, int month);

/// "2026-11-21": year, month and day of ISO 8601.
std::string isoDate(std::chrono::year_month_day date);
std::string isoDate(const VAKDate& date);

}  // namespace quode
