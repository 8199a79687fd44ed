// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/zone_days.h"

#include <algorithm>
#include <cmath>

#include "common/numbers.h"
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

}  // namespace

std::string zoneDaysText(const std::vector<ZoneDays>& days) {
    std::string text;
    for (const ZoneDays& run : days) {
        text += numberText(run.first.time_since_epoch().count()) + ' ' +
                numberText(run.last.time_since_epoch().count()) + ' ' + numberText(run.offset) + ';';
    }
    return text;
}

std::vector<ZoneDays> zoneDaysOf(std::string_view text) {
    const auto next = [&text] {
        const auto number = takeNumber<int>(text);
        if (!text.empty()) text.remove_prefix(1);  // the blank or the semicolon
        return number;
    };
    std::vector<ZoneDays> all;
    while (!text.empty()) {
        const auto first = next(), last = next(), offset = next();
        if (!first || !last || !offset) break;
        all.push_back({sys_days(days(*first)), sys_days(days(*last)), *offset});
    }
    return all;
}

bool ZoneKnowledge::systemIsOlder() const {
    return !systemEdition.empty() && isNewerEdition(edition, systemEdition);
}

std::optional<int> ZoneKnowledge::offsetOn(sys_days day) const {
    if (day < firstKnownDay) return std::nullopt;
    if (newer) return newer->offsetAtNoon(day);
    const auto after = std::ranges::upper_bound(days, day, {}, &ZoneDays::first);
    if (after == days.begin() || day > std::prev(after)->last) return std::nullopt;
    return std::prev(after)->offset;
}

ZoneRule ZoneClock::ruleOn(year_month_day date) const {
    const std::optional<int> offset = known && date.ok() ? known->offsetOn(date) : std::nullopt;
    if (!offset || *offset == secondsOf(quode::offsetOn(rule, date))) return rule;
    const int standard = secondsOf(rule.gmt);
    const bool isKnownSummer = rule.dst && *offset == standard + secondsPerHour;
    if (isKnownSummer) return summerOn(date, standard);
    const bool isSummer = known->newer && *offset > standard && known->newer->isSummerAtNoon(date);
    return isSummer ? summerOn(date, *offset - secondsPerHour) : withoutSummer(*offset);
}

int ZoneClock::offsetOn(year_month_day date) const {
    return secondsOf(quode::offsetOn(ruleOn(date), date));
}

int ZoneClock::offsetAt(sys_seconds moment) const {
    if (known && known->newer && moment >= firstKnownDay) return known->newer->offsetAt(moment);
    const sys_seconds standard = moment + std::chrono::seconds(secondsOf(rule.gmt));
    return offsetOn(year_month_day(std::chrono::floor<days>(standard - changeOfClocks)));
}

std::optional<ClockChange> nextClockChange(const ZoneClock& clock, year_month_day after) {
    const ZoneKnowledge* const known = clock.known.get();
    const bool neverChanges = !clock.rule.dst && (!known || (known->days.empty() && !known->newer));
    if (neverChanges || !after.ok()) return std::nullopt;
    int before = clock.offsetOn(after);
    for (sys_days day = sys_days(after) + days(1); day <= sys_days(after) + days(farthest); day += days(1)) {
        const int offset = clock.offsetOn(day);
        if (offset != before) return ClockChange{day, offset > before};
        before = offset;
    }
    return std::nullopt;
}

bool operator==(const ZoneClock& a, const ZoneClock& b) {
    const bool sameKnowledge = a.known == b.known || (a.known && b.known && *a.known == *b.known);
    return a.rule == b.rule && sameKnowledge;
}

}  // namespace quode
