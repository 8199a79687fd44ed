// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "data/city_day.h"

namespace quode::timetables {

/// Knows between which minutes the times of a place can lie at all, whatever the convention.
class SunCheck {
  public:
    /// A range of minutes of the day, and the middle that a time follows from day to day.
    struct Range {
        int earliest = 0, latest = 0;
        double middle = 0.0;
        double bend = 0.0;  ///< minutes that a rule for light nights may move a time by from one day to the next
    };

    struct Day {
        std::array<Range, mainPrayerCount> ranges;
        bool isRamadan = false;

        const Range& operator[](std::size_t prayer) const { return ranges.at(prayer); }
    };

    explicit SunCheck(const Site& site) : site_(site) {}

    /// The ranges of a day, counted from 1 January 1970.
    const Day& day(int number);

    /// Hours of the place's clock east of Greenwich on a day.
    double offset(int number) const;

  private:
    Site site_;
    std::map<int, Day> days_;
};

}  // namespace quode::timetables
