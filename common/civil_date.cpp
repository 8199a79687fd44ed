// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/civil_date.h"

#include <fmt/format.h>

#include <array>

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

bool isLeapYear(int year) {
    constexpr int lastJulianYear = 1582;
    return year % 4 == 0 && (year <= lastJulianYear || year % 100 != 0 || year % 400 == 0);
}

int daysInMonth(int year, int month) {
    constexpr std::array<int, 12> lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return lengths[static_cast<std::size_t>(month) - 1] + (month == 2 && isLeapYear(year) ? 1 : 0);
}

std::string isoDate(std::chrono::year_month_day date) {
    return fmt::format("{:04}-{:02}-{:02}", int(date.year()), unsigned(date.month()), unsigned(date.day()));
}

std::string isoDate(const VAKDate& date) {
    return fmt::format("{:04}-{:02}-{:02}", date.Years, date.Months, date.Days);
}

}  // namespace quode
