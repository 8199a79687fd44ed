// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/civil_date.h"

namespace quode {

std::chrono::year_month_day civilDate(const VAKDate& date) {
    return {std::chrono::year(date.Years), std::chrono::month(static_cast<unsigned>(date.Months)),
            std::chrono::day(static_cast<unsigned>(date.Days))};
}

std::chrono::sys_days dayOf(const VAKDate& date) {
    return civilDate(date);
}

VAKDate recordOf(std::chrono::sys_days day) {
    return recordOf(std::chrono::sys_seconds(day));
}

VAKDate recordOf(std::chrono::sys_seconds local) {
    const auto day = std::chrono::floor<std::chrono::days>(local);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(local - day);
    return VAKDateMake(int(unsigned(date.day())), int(unsigned(date.month())), int(date.year()),
                       int(time.hours().count()), int(time.minutes().count()), int(time.seconds().count()));
}

VAKDate recordOf(const CivilTime& time) {
    return VAKDateMake(time.day, time.month, time.year, time.hour, time.minute, time.second);
}

}  // namespace quode
