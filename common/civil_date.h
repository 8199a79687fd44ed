// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The one conversion between a date record, a civil date of the standard library, and a count of days.
#pragma once

#include <chrono>

#include "astro/VAKDate.h"
#include "platform/Clock.h"

namespace quode {

/// The date of a record, by the same numbers.
std::chrono::year_month_day civilDate(const VAKDate& date);

/// The day of a record in the proleptic Gregorian calendar.
std::chrono::sys_days dayOf(const VAKDate& date);

/// The record of a day, at 0 h.
VAKDate recordOf(std::chrono::sys_days day);

/// The record of a moment of a wall clock, counted as if that clock were UTC.
VAKDate recordOf(std::chrono::sys_seconds local);

/// The record of a wall clock.
VAKDate recordOf(const CivilTime& time);

}  // namespace quode
