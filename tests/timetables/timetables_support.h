// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/city_day.h"
#include "timetables/import.h"

namespace quode::timetables {

Site istanbul();

/// Reads a file for Istanbul.
Import imported(const std::string& content, const ImportOptions& options = {});

/// Why a file is refused as a whole; empty when it is read.
std::string messageOf(const std::string& content, const ImportOptions& options = {});

/// The minute of a prayer on a day; it must be there.
int minute(const Import& import, int day, std::size_t prayer);

inline constexpr int firstOfMarch2026 = 20513;

/// The times of some days from a number on, by a method.
Timetable tableOf(Site site, const std::string& key, int firstDay, int count);

/// The times of a month in Istanbul by a method, as a table.
Timetable tableBy(const std::string& key, int year, int month);

/// A table as CSV with the columns date, fajr, sunrise, dhuhr, asr, maghrib, isha.
std::string csvOf(const Timetable& table);

}  // namespace quode::timetables
