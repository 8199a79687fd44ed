// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/zone_rules.h"

#include "astro/AstroGlobalFuncs.h"

namespace quode {

bool isValid(const ZoneRule& rule) {
    const auto month = [](int value) { return value >= 0 && value <= 11; };
    const auto day = [](int value) { return value >= 0 && value <= weekdayRule(6, 4); };
    return rule.gmt >= -14.0 && rule.gmt <= 14.0 && month(rule.startMonth) && month(rule.stopMonth) &&
           day(rule.startDay) && day(rule.stopDay) && rule.hour >= 0 && rule.hour <= 2;
}

bool isSummerTime(const ZoneRule& rule, std::chrono::year_month_day date) {
    if (!rule.dst || !date.ok()) return false;
    int startDayOfMonth = -1;
    int stopDayOfMonth = -1;
    return AstroGlobalFuncs::IsDSTDay(rule.startDay, rule.startMonth, rule.stopDay, rule.stopMonth, int(date.year()),
                                      static_cast<int>(unsigned(date.month())), static_cast<int>(unsigned(date.day())),
                                      startDayOfMonth, stopDayOfMonth);
}

double offsetOn(const ZoneRule& rule, std::chrono::year_month_day date) {
    return rule.gmt + (isSummerTime(rule, date) ? rule.hour : 0);
}

}  // namespace quode
