// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The moment at which a prayer alarm rings, on the device's clock.
#pragma once

#include <chrono>
#include <optional>

#include "astro/VAKDate.h"
#include "platform/Clock.h"

namespace quode {

/// The moment of an alarm on the wall clock: today's, or tomorrow's when today's minute is over.
/// @param now            the wall clock; its second is ignored
/// @param prayTime       decimal hours of the day of `now`, truncated to the minute; outside 0..24 in the day before or
///                       after
/// @param offsetMinutes  added to the time; negative: before it
/// @return the minute at which it rings; Years = Months = Days = -1 when the numbers give no date
VAKDate nextAlarmMoment(const VAKDate& now, double prayTime, int offsetMinutes);

/// The instant at which the device's wall clock shows a date and time. Of a time that occurs twice, when the clocks go
/// back, it is the first; a time that is skipped moves later by the size of the change.
/// @return nothing for a date outside the years 1 to 9999
std::optional<std::chrono::sys_seconds> instantOfWallClock(const Clock& device, const VAKDate& time);

}  // namespace quode
