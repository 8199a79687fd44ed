// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <vector>

#include "data/city_day.h"

namespace quode::timetables {

/// How a table agrees with a method.
struct Fit {
    std::string key;
    int times = 0, exact = 0, withinOne = 0, worst = 0;
    std::array<int, mainPrayerCount> prayerTimes{}, prayerWithinOne{};

    double percentWithinOne() const { return times == 0 ? 0.0 : 100.0 * withinOne / times; }
};

/// A share in whole percent; 100 only for all of them.
int percentOf(int part, int whole);

/// The agreement of a table with every method at a site, the best first.
std::vector<Fit> fitsOf(const Timetable& table, const Site& site);

}  // namespace quode::timetables
