// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/next_midnight.h"

#include "common/civil_date.h"

namespace quode {
namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;

// Halves the time in which the date changes.
template <typename DayAt>
sys_seconds changeOfDate(const DayAt& dayAt, sys_seconds now) {
    constexpr std::chrono::hours longestDay{49};  // a clock that goes back by a whole day repeats it
    const sys_days today = dayAt(now);
    sys_seconds before = now, after = now + longestDay;
    while (after - before > seconds(1)) {
        const sys_seconds middle = before + (after - before) / 2;
        (dayAt(middle) == today ? before : after) = middle;
    }
    return after;
}

}  // namespace

sys_seconds nextMidnight(const Clock& clock, sys_seconds now) {
    return changeOfDate([&](sys_seconds moment) { return dayOf(recordOf(clock.civilTime(moment))); }, now);
}

sys_seconds nextMidnight(const ZoneClock& clock, sys_seconds now) {
    return changeOfDate([&](sys_seconds moment) { return floor<days>(moment + seconds(clock.offsetAt(moment))); }, now);
}

}  // namespace quode
