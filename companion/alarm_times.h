// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// When alarms ring.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <vector>

#include "astro/VAKDate.h"
#include "data/city_day.h"
#include "platform/Clock.h"

namespace quode {

/// All days of the week: bit 0 is Sunday, bit 6 Saturday.
inline constexpr unsigned everyDay = 0x7F;

/// What decides when an alarm rings.
struct AlarmRule {
    int code = 0;                            ///< 200 (Imsak) to 205 (Yatsi)
    int offset = 0;                          ///< minutes added to the prayer time
    unsigned days = everyDay;                ///< of the prayer, at the place
    std::optional<int> reminder = {};        ///< minutes added to the prayer time for a second ring
    std::chrono::sys_seconds silentUntil{};  ///< a ring up to this moment, and at it, is left out

    friend bool operator==(const AlarmRule&, const AlarmRule&) = default;
};

/// One ring of an alarm, past or coming.
struct AlarmOccurrence {
    int code = 0;
    std::chrono::sys_seconds due{};     ///< when it rings
    std::chrono::sys_seconds prayer{};  ///< the minute of the prayer
    double hours = 0.0;                 ///< the prayer's time at the place, decimal hours of `date`
    VAKDate date;                       ///< the civil day at the place, at 0 h

    friend bool operator==(const AlarmOccurrence&, const AlarmOccurrence&) = default;
};

/// All rings of alarms with after < due <= until, in the order of time. A prayer without a time on a day does not ring.
std::vector<AlarmOccurrence> alarmOccurrences(const Site& site, std::span<const AlarmRule> alarms,
                                              std::chrono::sys_seconds after, std::chrono::sys_seconds until);

/// The prayer time in decimal hours by which `nextAlarmMoment` comes to a ring.
/// device        its clock, for the zone
/// now           the present moment
/// due           when it rings, at most a day ahead
/// @return within 0..24 where that is possible; nothing when the operation cannot come to that moment
std::optional<double> prayTimeFor(const Clock& device, std::chrono::sys_seconds now, std::chrono::sys_seconds due,
                                  int offsetMinutes);

}  // namespace quode
