// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/zone_encoding.h"

#include <cstdlib>
#include <stdexcept>
#include <tuple>

namespace quode::places {
namespace {

constexpr int secondsPerDay = 24 * 3600;

struct RuleDay {
    int month = 0;  // 0..11
    int day = 0;
};

bool happensOnNamedDay(const PosixChange& change) {
    return change.seconds >= 0 && change.seconds < secondsPerDay;
}

// How badly a weekday rule meets a change: years missed, then days of error in all.
std::tuple<int, int> errorOf(const PosixChange& candidate, const PosixChange& change, Years years) {
    int missed = 0;
    int days = 0;
    for (int year = years.first; year <= years.last; ++year) {
        const auto error = candidate.namedDay(std::chrono::year(year)) - firstDayOf(change, year);
        missed += error.count() != 0 ? 1 : 0;
        days += static_cast<int>(std::labs(error.count()));
    }
    return {missed, days};
}

PosixChange nearestWeekdayRule(const PosixChange& change, Years years) {
    PosixChange best;
    auto bestError = std::tuple(years.last - years.first + 2, 0);
    for (int month = 1; month <= 12; ++month) {
        for (int weekday = 0; weekday <= 6; ++weekday) {
            for (int week = 1; week <= 5; ++week) {
                const PosixChange candidate{month, week, weekday, 0};
                const auto error = errorOf(candidate, change, years);
                if (error < bestError) {
                    best = candidate;
                    bestError = error;
                }
            }
        }
    }
    return best;
}

RuleDay ruleDayOf(const PosixChange& change, Years years) {
    const PosixChange whole = happensOnNamedDay(change) ? change : nearestWeekdayRule(change, years);
    return {whole.month - 1, weekdayRule(whole.weekday, whole.week - 1)};
}

// Turns a zone whose "summer" is the hour less round, so that summer time is always ahead.
PosixZone ordinary(const PosixZone& zone) {
    if (!zone.summer || zone.summer->offset > zone.offset) return zone;
    return {zone.summer->offset, PosixZone::Summer{zone.offset, zone.summer->end, zone.summer->start}};
}

}  // namespace

std::chrono::sys_days firstDayOf(const PosixChange& change, int year) {
    const std::chrono::sys_days named = change.namedDay(std::chrono::year(year));
    if (happensOnNamedDay(change)) return named;
    const auto moment = named + std::chrono::seconds(change.seconds);
    const auto noon = std::chrono::seconds(secondsPerDay / 2);
    return std::chrono::ceil<std::chrono::days>(moment - noon);
}

ZoneRule encoded(const PosixZone& source, Years years) {
    const PosixZone zone = ordinary(source);
    ZoneRule rule;
    rule.gmt = zone.offset / 3600.0;
    if (!zone.summer) return rule;
    const int shift = zone.summer->offset - zone.offset;
    if (shift % 3600 != 0) throw std::runtime_error("a summer time that is not of whole hours cannot be stored");
    const RuleDay start = ruleDayOf(zone.summer->start, years);
    const RuleDay stop = ruleDayOf(zone.summer->end, years);
    rule.dst = true;
    rule.startMonth = start.month;
    rule.startDay = start.day;
    rule.stopMonth = stop.month;
    rule.stopDay = stop.day;
    rule.hour = shift / 3600;
    return rule;
}

}  // namespace quode::places
