// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A day's times as columns of a CSV file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/city_day.h"

namespace quode::cli {

/// Notes on a day's times: "other_latitude", "fajr_of_earlier_day", "isha_after_midnight" and the like.
std::vector<std::string> notesOf(const CityDay& day);

/// The names of the columns of `csvTimes`.
std::string csvTimesHead();

/// The nine times, the offset from universal time and the notes. A time that does not exist is an empty column.
std::string csvTimes(const CityDay& day);

/// A text as a column: quoted where it has to be.
std::string csvText(std::string_view text);

}  // namespace quode::cli
