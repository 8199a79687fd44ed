// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/zone_clock.h"

#include <cmath>

#include "data/zone_edition.h"

namespace quode {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year_month_day;

constexpr int secondsPerHour = 3600;
constexpr int farthest = 731;  // days in which a change is searched: two years, because one change may be missing

// Rules have days, not hours: nearly everywhere the clocks change within an hour of this standard time.
constexpr std::chrono::hours changeOfClocks{2};

int secondsOf(double hours) {
    return static_cast<int>(std::lround(hours * secondsPerHour));
}

// A rule that makes a day summer time: the year up to 30 December, or from the first Sunday of December on.
ZoneRule summerOn(year_month_day date, int standardOffset) {
    const double gmt = static_cast<double>(standardOffset) / secondsPerHour;
    const bool isLastDay = date.month() == std::chrono::December && date.day() == std::chrono::day(31);
    if (!isLastDay) return {gmt, true, 0, 0, 11, 30, 1};
    return {gmt, true, 11, weekdayRule(0, 0), 0, weekdayRule(0, 0), 1};
}

ZoneRule withoutSummer(int offset) {
    ZoneRule rule;
    rule.gmt = static_cast<double>(offset) / secondsPerHour;
    return rule;
}

// The day on which a clock leaves an offset that it no longer has at noon of `day`: that day, or the evening before.
sys_days dateOfChange(const ZoneClock& clock, sys_days day, int before) {
    const sys_seconds midnight = day - std::chrono::seconds(before);
    return clock.offsetAt(midnight - std::chrono::seconds(1)) == before ? day : day - days(1);
}

}  // namespace

bool ZoneKnowledge::systemIsOlder() const {
    return !systemEdition.empty() && isNewerEdition(edition, systemEdition);
}

std::optional<int> ZoneKnowledge::offsetOn(sys_days day) const {
    if (!zone || day < firstKnownDay) return std::nullopt;
    return zone->offsetAtNoon(day);
}

ZoneRule ZoneClock::ruleOn(year_month_day date) const {
    const std::optional<int> offset = known && date.ok() ? known->offsetOn(date) : std::nullopt;
    if (!offset || *offset == secondsOf(quode::offsetOn(rule, date))) return rule;
    const int standard = secondsOf(rule.gmt);
    const bool isKnownSummer = rule.dst && *offset == standard + secondsPerHour;
    if (isKnownSummer) return summerOn(date, standard);
    const bool isSummer = *offset > standard && known->zone->isSummerAtNoon(date);
    return isSummer ? summerOn(date, *offset - secondsPerHour) : withoutSummer(*offset);
}

int ZoneClock::offsetOn(year_month_day date) const {
    return secondsOf(quode::offsetOn(ruleOn(date), date));
}

int ZoneClock::offsetAt(sys_seconds moment) const {
    if (known && known->zone && moment >= firstKnownDay) return known->zone->offsetAt(moment);
    const sys_seconds standard = moment + std::chrono::seconds(secondsOf(rule.gmt));
    return offsetOn(year_month_day(std::chrono::floor<days>(standard - changeOfClocks)));
}

std::optional<ClockChange> nextClockChange(const ZoneClock& clock, year_month_day after) {
    const bool neverChanges = !clock.rule.dst && !clock.known;
    if (neverChanges || !after.ok()) return std::nullopt;
    int before = clock.offsetOn(after);
    for (sys_days day = sys_days(after) + days(1); day <= sys_days(after) + days(farthest); day += days(1)) {
        const int offset = clock.offsetOn(day);
        if (offset != before) return ClockChange{dateOfChange(clock, day, before), offset > before};
        before = offset;
    }
    return std::nullopt;
}

bool operator==(const ZoneClock& a, const ZoneClock& b) {
    const bool sameKnowledge = a.known == b.known || (a.known && b.known && *a.known == *b.known);
    return a.rule == b.rule && sameKnowledge;
}

}  // namespace quode
