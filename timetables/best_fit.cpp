// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/best_fit.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>

#include "common/civil_date.h"
#include "data/city_day.h"

namespace quode::timetables {
namespace {

void compare(const TimetableRow& row, const CityDay& day, Fit& fit) {
    for (std::size_t i = 0; i < mainPrayerCount; ++i) {
        const auto hours = timeOfPrayer(day, firstPrayer + int(i));
        if (!row.minutes[i] || !hours) continue;
        const int off = std::abs(shownMinute(*hours) - *row.minutes[i]);
        ++fit.times;
        ++fit.prayerTimes[i];
        if (off == 0) ++fit.exact;
        if (off <= 1) ++fit.withinOne, ++fit.prayerWithinOne[i];
        fit.worst = std::max(fit.worst, off);
    }
}

}  // namespace

int percentOf(int part, int whole) {
    if (whole == 0) return 0;
    const int percent = int(std::lround(100.0 * part / whole));
    return part < whole ? std::min(percent, 99) : percent;
}

std::vector<Fit> fitsOf(const Timetable& table, const Site& site) {
    std::vector<Fit> fits;
    for (const auto& convention : conventions::allConventions()) {
        Site by = site;
        by.choice.table.reset();
        by.choice.method = {};
        by.choice.method.key = convention.key;
        Fit fit;
        fit.key = convention.key;
        for (const auto& [number, row] : table.rows) {
            const std::chrono::sys_days day{std::chrono::days(number)};
            compare(row, computeCityDay(by, recordOf(day)), fit);
        }
        fits.push_back(fit);
    }
    std::ranges::stable_sort(fits, [](const Fit& a, const Fit& b) {
        return a.withinOne != b.withinOne ? a.withinOne > b.withinOne : a.exact > b.exact;
    });
    return fits;
}

}  // namespace quode::timetables
