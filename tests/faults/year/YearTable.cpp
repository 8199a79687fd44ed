// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "YearTable.h"

#include <fmt/format.h>

#include <ctime>

#include "data/city_day.h"
#include "support/scoped_variable.h"

namespace quode::test {
namespace {

using namespace std::chrono;

constexpr int minutesPerDay = 1440;

// The C library's answer for a minute of a civil day, in the zone of the environment.
sys_seconds instantOfMinute(sys_days day, int minute) {
    const year_month_day date(day);
    std::tm civil{};
    civil.tm_year = int(date.year()) - 1900;
    civil.tm_mon = int(unsigned(date.month())) - 1;
    civil.tm_mday = int(unsigned(date.day()));
    civil.tm_min = minute;
    civil.tm_isdst = -1;
    return sys_seconds(seconds(std::mktime(&civil)));
}

}  // namespace

std::vector<TableEntry> yearTable(const CityRecord& city, sys_days first, sys_days last) {
    const ScopedVariable zone("TZ", city.zone.c_str());
    tzset();
    std::vector<TableEntry> table;
    for (sys_days day = first; day <= last; day += days(1)) {
        const year_month_day date(day);
        const CityDay times = computeCityDay(
            siteOf(city),
            VAKDateMake(int(unsigned(date.day())), int(unsigned(date.month())), int(date.year()), 0, 0, 0));
        for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
            const auto hours = timeOfPrayer(times, code);
            if (!hours) continue;
            const int minute = shownMinute(*hours);
            const int shown = (minute % minutesPerDay + minutesPerDay) % minutesPerDay;
            table.push_back(
                {code, instantOfMinute(day, minute), fmt::format("{:02d}:{:02d}", shown / 60, shown % 60), city.name});
        }
    }
    return table;
}

}  // namespace quode::test
