// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/city_day.h"

namespace quode::timetables {

Site istanbul();

/// The times of a month in Istanbul by a method, as a table.
Timetable tableBy(const std::string& key, int year, int month);

/// A table as CSV with the columns date, fajr, sunrise, dhuhr, asr, maghrib, isha.
std::string csvOf(const Timetable& table);

}  // namespace quode::timetables
