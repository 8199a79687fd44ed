// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// When a prayer alarm rings, by the device's calendar.
#pragma once

#include <chrono>
#include <optional>

#include "astro/VAKDate.h"
#include "platform/Clock.h"

namespace quode {

/// The moment of an alarm on the wall clock: today's, or tomorrow's when today's minute is over.
/// now             the wall clock; its second does not count
/// prayTime        decimal hours of the day of `now`; the minute is truncated. Hours beyond 0..24 lead to the day
/// before or
///                 after
/// offsetMinutes   added to the time; negative: before it
/// Returned: the minute at which it rings; Years = Months = Days = -1 when the numbers lead to no date.
VAKDate nextAlarmMoment(const VAKDate& now, double prayTime, int offsetMinutes);

/// The instant at which the device's wall clock shows a date and time. A time that is shown twice, when the clocks go
/// back, is the earlier one; a time that is skipped is taken as much later as the clocks go forward. Returned: nothing
/// for a date outside the years 1 to 9999.
std::optional<std::chrono::sys_seconds> instantOfWallClock(const Clock& device, const VAKDate& time);

}  // namespace quode
