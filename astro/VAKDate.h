// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quode {

/// A date with a time of day, Gregorian or Hijri; all of Quode shares this record.
/// Years are counted without a year 0: the year before 1 is -1. Fixed names: all fields and `VAKDateMake`.
struct VAKDate {
    std::int32_t Years = 0;
    std::int32_t Months = 0;   ///< 1..12
    std::int32_t Days = 0;     ///< 1..31
    std::int32_t Hours = 0;    ///< 0..23
    std::int32_t Minutes = 0;  ///< 0..59
    std::int32_t Seconds = 0;  ///< 0..59
    double MSeconds = 0.0;     ///< fraction of a second, 0 <= x < 1; only the clock fills it

    friend bool operator==(const VAKDate&, const VAKDate&) = default;
};

/// Makes the record of a date and time of day. Note the order day, month, year.
constexpr VAKDate VAKDateMake(int day, int month, int year, int hour, int minute, int second) {
    return {year, month, day, hour, minute, second, 0.0};
}

/// True when both records are of the same day; their times of day do not matter.
constexpr bool sameDay(const VAKDate& a, const VAKDate& b) {
    return a.Years == b.Years && a.Months == b.Months && a.Days == b.Days;
}

}  // namespace quode
