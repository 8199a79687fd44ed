// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables_support.h"

#include <fmt/format.h>

#include <chrono>

#include "common/civil_date.h"

namespace quode::timetables {

Site istanbul() {
    Site site;
    site.latitude = 41.01384;
    site.longitude = 28.94966;
    site.rule.gmt = 3.0;
    return site;
}

Import imported(const std::string& content, const ImportOptions& options) {
    SunCheck check(istanbul());
    return importTable(readRawTable(content, istanbul().clock()), options, check);
}

std::string messageOf(const std::string& content, const ImportOptions& options) {
    try {
        imported(content, options);
    } catch (const ImportError& error) {
        return error.what();
    }
    return "";
}

int minute(const Import& import, int day, std::size_t prayer) {
    return import.table.rows.at(day).minutes.at(prayer).value();
}

Timetable tableOf(Site site, const std::string& key, int firstDay, int count) {
    site.choice.method.key = key;
    Timetable table;
    for (int number = firstDay; number < firstDay + count; ++number) {
        const std::chrono::sys_days day{std::chrono::days(number)};
        const CityDay computed = computeCityDay(site, recordOf(day));
        TimetableRow row;
        for (std::size_t i = 0; i < row.minutes.size(); ++i) {
            const auto hours = timeOfPrayer(computed, firstPrayer + int(i));
            if (hours) row.minutes[i] = shownMinute(*hours);
        }
        table.rows[number] = row;
    }
    return table;
}

Timetable tableBy(const std::string& key, int year, int month) {
    using namespace std::chrono;
    const auto first = std::chrono::year(year) / std::chrono::month(unsigned(month));
    const int count = int(unsigned((first / std::chrono::last).day()));
    return tableOf(istanbul(), key, int(sys_days(first / 1).time_since_epoch().count()), count);
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
