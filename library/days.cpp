// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Days of prayer times, and the next prayer.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "common/civil_date.h"
#include "common/formatting.h"
#include "data/city_days.h"
#include "data/fallbacks.h"
#include "library/handles.h"

namespace quode::library {
namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;

/// Whether the night prayer of a day follows sunset by an interval.
bool nightFollowsSunset(const CityDay& day) {
    const auto convention = conventions::conventionOf(day.method.method);
    return convention && convention->rule(Prayer::isha).basis == conventions::Basis::afterMaghrib;
}

std::int32_t absenceOf(const CityDay& day, int code) {
    switch (Prayer(code)) {
        case Prayer::fajr:
            return QUODE_SUN_NOT_LOW_ENOUGH;
        case Prayer::isha:
            return nightFollowsSunset(day) ? QUODE_SUN_NOT_AT_HORIZON : QUODE_SUN_NOT_LOW_ENOUGH;
        case Prayer::sunrise:
        case Prayer::maghrib:
            return QUODE_SUN_NOT_AT_HORIZON;
        default:
            return QUODE_SUN_NOT_HIGH_ENOUGH;
    }
}

std::int32_t originOf(const CityDay& day, int code) {
    switch (day.method.mark(code).source) {
        case TimeSource::highLatitude:
            return QUODE_BY_HIGH_LATITUDE;
        case TimeSource::otherLatitude:
            return QUODE_BY_OTHER_LATITUDE;
        case TimeSource::ownRule:
            return QUODE_BY_OWN_RULE;
        case TimeSource::engine:
            break;
        default:
            return QUODE_BY_RULE;
    }
    const Fallbacks fallbacks = fallbacksOf(day.times, code);
    if (fallbacks.latitude) return QUODE_BY_OTHER_LATITUDE;
    return fallbacks.earlierDay ? QUODE_BY_EARLIER_DAY : QUODE_BY_RULE;
}

quode_time timeOf(const CityDay& day, int code) {
    const auto hours = timeOfPrayer(day, code);
    if (!hours) {
        return {QUODE_NO_INSTANT,     std::numeric_limits<double>::quiet_NaN(),
                QUODE_NO_MINUTE,      QUODE_BY_RULE,
                absenceOf(day, code), 0};
    }
    return {instantOf(day, *hours).time_since_epoch().count(),
            *hours,
            shownMinute(*hours),
            originOf(day, code),
            QUODE_PRESENT,
            day.method.mark(code).adjusted};
}

quode_day recordOf(const CityDay& day) {
    quode_day record{};
    record.date = dateOf(quode::dayOf(day.date));
    record.utc_offset = static_cast<std::int32_t>(std::lround(day.GMTValue * 3600.0));
    record.is_summer_time = day.isDSTTime ? 1 : 0;
    for (int code = firstPrayer; code <= lastPrayer; ++code) record.times[code - firstPrayer] = timeOf(day, code);
    return record;
}

void computeDays(const quode_place& place, const quode_date& first, std::size_t count, quode_day* results) {
    const auto day = dayOf(first);
    if (!day || count > static_cast<std::size_t>((lastDay - *day).count()) + 1) {
        throw Failure(QUODE_BAD_ARGUMENT,
                      "There is no such day, or not for Quode. Give Gregorian days from 1582-10-15 to 9999-12-31.");
    }
    CityDays series;
    CityDay computed;
    for (std::size_t i = 0; i < count; ++i) {
        series.computeTimes(place.site, quode::recordOf(*day + days(static_cast<int>(i))), computed);
        results[i] = recordOf(computed);
    }
}

bool isInRange(std::int64_t instant) {
    constexpr sys_seconds first{sys_days(std::chrono::year(1582) / 10 / 17)}, last{lastDay - days(2)};
    return instant >= first.time_since_epoch().count() && instant <= last.time_since_epoch().count();
}

}  // namespace
}  // namespace quode::library

using namespace quode;
using namespace quode::library;

quode_status quode_day_of(const quode_place* place, quode_date date, quode_day* day, quode_error* error) {
    return quode_days_of(place, date, 1, day, error);
}

quode_status quode_days_of(const quode_place* place, quode_date first, size_t count, quode_day* results,
                           quode_error* error) {
    return guarded(error, [&] { library::computeDays(*place, first, count, results); });
}

quode_status quode_next_of(const quode_place* place, int64_t instant, quode_next* next, quode_error* error) {
    return guarded(error, [&] {
        if (!isInRange(instant)) {
            throw Failure(QUODE_BAD_ARGUMENT, "The instant is out of range. Give Unix time, in seconds.");
        }
        const auto found = nextPrayer(place->site, sys_seconds(seconds(instant)));
        if (!found) {
            throw Failure(QUODE_NOT_FOUND, "Yesterday, today and tomorrow have none of the prayer times here.");
        }
        const double hours = found->hours;
        *next = {found->code - firstPrayer, shownMinute(hours), dateOf(quode::dayOf(found->date)), 0,
                 found->instant.time_since_epoch().count()};
    });
}

quode_date quode_date_at(const quode_place* place, int64_t instant) {
    if (!isInRange(instant)) return {};
    return dateOf(quode::dayOf(wallClock(place->site.clock(), sys_seconds(seconds(instant)))));
}

const char* quode_time_key(int32_t prayer) {
    return prayer >= 0 && prayer < QUODE_TIME_COUNT ? factsOf(prayer + firstPrayer).key : nullptr;
}

const char* quode_absence_text(int32_t absence) {
    switch (absence) {
        case QUODE_SUN_NOT_LOW_ENOUGH:
            return "The Sun does not sink low enough for this time.";
        case QUODE_SUN_NOT_HIGH_ENOUGH:
            return "The Sun does not climb high enough for this time.";
        case QUODE_SUN_NOT_AT_HORIZON:
            return "The Sun does not rise and set on this day.";
        default:
            return "";
    }
}

void quode_clock_text(int32_t minute, char text[6]) {
    if (minute == QUODE_NO_MINUTE) {
        *std::ranges::copy(formatting::noTime, text).out = '\0';
        return;
    }
    const int ofDay = minuteOfDay(minute);
    const int hour = ofDay / minutesPerHour, rest = ofDay % minutesPerHour;
    const auto digit = [](int value) { return static_cast<char>('0' + value); };
    const char clock[6] = {digit(hour / 10), digit(hour % 10), ':', digit(rest / 10), digit(rest % 10), '\0'};
    std::memcpy(text, clock, sizeof clock);
}
