// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "data/Timetable.h"
#include "timetables/SunCheck.h"

namespace quode::timetables {

/// A time that does not fit between those of the days around it.
struct Outlier {
    int day = 0;  ///< counted from 1 January 1970
    int prayer = 0;
    int minute = 0;
    int distance = 0;  ///< minutes
};

/// The times of a table that stand out: tables round and wait, but they follow the Sun from day to day.
std::vector<Outlier> outliersOf(const Timetable& table, SunCheck& check);

}  // namespace quode::timetables
