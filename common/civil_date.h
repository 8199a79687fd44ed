// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Conversions between a date record, a civil date of the standard library, and a count of days. Nothing throws.
#pragma once

#include <chrono>

#include "astro/VAKDate.h"
#include "platform/Clock.h"

namespace quode {

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

}  // namespace quode
