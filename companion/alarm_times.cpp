// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/alarm_times.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "alarms/alarm_moment.h"
#include "astro/PrayTimes.h"
#include "common/civil_date.h"
#include "data/city_days.h"

namespace quode {
namespace {

using namespace std::chrono;

// The prayer's minute is written from its middle, so that neither truncating nor rounding leads to another one.
constexpr double insideTheMinute = 0.25;

bool sameMinute(const VAKDate& a, const VAKDate& b) {
    return sameDay(a, b) && a.Hours == b.Hours && a.Minutes == b.Minutes;
}

// Decimal hours of a minute that is counted from 0 h of a day; negative on the day before.
double hoursOfMinute(int minute) {
    return (minute < 0 ? minute - insideTheMinute : minute + insideTheMinute) / 60.0;
}

void addOccurrences(const CityDay& day, std::span<const AlarmRule> alarms, sys_seconds after, sys_seconds until,
                    std::vector<AlarmOccurrence>& found) {
    const unsigned weekdayBit = 1U << weekday(civilDate(day.date)).c_encoding();
    for (const AlarmRule& alarm : alarms) {
        const auto hours = timeOfPrayer(day, alarm.code);
        if (!hours || (alarm.days & weekdayBit) == 0) continue;
        const sys_seconds prayer = instantOf(day, *hours);
        const auto add = [&](int offset) {
            const sys_seconds due = prayer + minutes(offset);
            const bool isWanted = due > std::max(after, alarm.silentUntil) && due <= until;
            if (isWanted) found.push_back({alarm.code, due, prayer, *hours, day.date});
        };
        add(alarm.offset);
        if (alarm.reminder && alarm.reminder != alarm.offset) add(*alarm.reminder);
    }
}

int reachOf(const AlarmRule& alarm) {
    return std::max(std::abs(alarm.offset), std::abs(alarm.reminder.value_or(0)));
}

}  // namespace

std::vector<AlarmOccurrence> alarmOccurrences(const Site& site, std::span<const AlarmRule> alarms, sys_seconds after,
                                              sys_seconds until) {
    int reach = 0;
    for (const AlarmRule& alarm : alarms) reach = std::max(reach, reachOf(alarm));
    // A time of a day may lie on the next one, after midnight.
    const sys_days first = dayOf(wallClock(site.clock(), after - minutes(reach))) - days(1);
    const sys_days last = dayOf(wallClock(site.clock(), until + minutes(reach)));
    std::vector<AlarmOccurrence> found;
    CityDays series;
    CityDay computed;
    for (sys_days day = first; day <= last; day += days(1)) {
        series.computeTimes(site, recordOf(day), computed);
        addOccurrences(computed, alarms, after, until, found);
    }
    std::ranges::stable_sort(found, {}, &AlarmOccurrence::due);
    return found;
}

std::optional<double> prayTimeFor(const Clock& device, sys_seconds now, sys_seconds due, int offsetMinutes) {
    const VAKDate wallClockNow = recordOf(device.civilTime(now));
    const VAKDate ring = recordOf(device.civilTime(due));
    const int minuteOfRing = ring.Hours * 60 + ring.Minutes - offsetMinutes;
    const int minuteOfPrayer = minuteOfDay(minuteOfRing);
    for (const int shift : {0, 1, -1}) {
        const double prayTime = hoursOfMinute(minuteOfPrayer + shift * minutesPerDay);
        if (sameMinute(nextAlarmMoment(wallClockNow, prayTime, offsetMinutes), ring)) return prayTime;
    }
    return std::nullopt;
}

}  // namespace quode
