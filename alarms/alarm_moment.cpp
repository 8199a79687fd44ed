// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarms/alarm_moment.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "common/calendar.h"

namespace quode {
namespace {

int clampedInt(double value) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp(value, double{Limits::min()}, double{Limits::max()}));
}

bool readsAs(const Clock& device, std::chrono::sys_seconds instant, std::chrono::sys_seconds wall) {
    return instant + device.utcOffset(instant) == wall;
}

}  // namespace

VAKDate nextAlarmMoment(const VAKDate& now, double prayTime, int offsetMinutes) {
    VAKDate moment = now;
    moment.Seconds = 0;
    const double thisMinute = calendar::GregorianDateToJulian(moment);

    const double wholeHours = std::trunc(prayTime);
    moment.Hours = clampedInt(wholeHours);
    moment.Minutes = clampedInt(std::trunc((prayTime - wholeHours) * 60.0) + offsetMinutes);
    double alarm = calendar::GregorianDateToJulian(moment);
    if (thisMinute > alarm) alarm += 1.0;
    return calendar::JulianToGregorian(alarm);
}

std::optional<std::chrono::sys_seconds> instantOfWallClock(const Clock& device, const VAKDate& time) {
    using namespace std::chrono;
    if (time.Years < 1 || time.Years > 9999) return std::nullopt;
    const year_month_day date = year{time.Years} / time.Months / time.Days;
    if (!date.ok()) return std::nullopt;

    // The wall clock taken as UTC; no zone is more than a day away from it.
    const sys_seconds wall = sys_days{date} + hours{time.Hours} + minutes{time.Minutes} + seconds{time.Seconds};
    const seconds before = device.utcOffset(wall - days{1});
    const seconds after = device.utcOffset(wall + days{1});
    for (const seconds offset : {std::max(before, after), std::min(before, after)}) {
        if (readsAs(device, wall - offset, wall)) return wall - offset;
    }
    return wall - before;
}

}  // namespace quode
