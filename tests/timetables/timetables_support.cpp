// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables_support.h"

#include <fmt/format.h>

#include <chrono>

namespace quode::timetables {

Site istanbul() {
    Site site;
    site.latitude = 41.01384;
    site.longitude = 28.94966;
    site.rule.gmt = 3.0;
    return site;
}

Timetable tableBy(const std::string& key, int year, int month) {
    using namespace std::chrono;
    Site site = istanbul();
    site.choice.method.key = key;
    Timetable table;
    const auto first = std::chrono::year(year) / std::chrono::month(unsigned(month));
    const int last = int(unsigned((first / std::chrono::last).day()));
    for (int day = 1; day <= last; ++day) {
        const VAKDate date = VAKDateMake(day, month, year, 0, 0, 0);
        const CityDay computed = computeCityDay(site, date);
        TimetableRow row;
        for (std::size_t i = 0; i < row.minutes.size(); ++i) {
            row.minutes[i] = shownMinute(timeOfPrayer(computed, firstPrayer + int(i)));
        }
        table.rows[dayNumber(date)] = row;
    }
    return table;
}

std::string csvOf(const Timetable& table) {
    std::string csv = "date,fajr,sunrise,dhuhr,asr,maghrib,isha\n";
    for (const auto& [number, row] : table.rows) {
        const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(number))};
        csv += fmt::format("{:04}-{:02}-{:02}", int(date.year()), unsigned(date.month()), unsigned(date.day()));
        for (const auto& minute : row.minutes) csv += fmt::format(",{:02}:{:02}", *minute / 60 % 24, *minute % 60);
        csv += '\n';
    }
    return csv;
}

}  // namespace quode::timetables
