// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Dates and times as people write them.
#pragma once

#include <optional>
#include <string_view>

namespace quode::timetables {

/// A time of the clock. `half` says which half of the day was written.
struct ClockTime {
    enum class Half { unknown, morning, afternoon };

    int hour = 0, minute = 0, second = 0;
    Half half = Half::unknown;
};

/// "5:12", "05.12", "5h12", "0512", "5:12 PM", "5:12:40", "٥:١٢ م", "2026-01-05T05:12:00". Nothing for anything else.
std::optional<ClockTime> clockTimeOf(std::string_view text);

/// The three numbers of a date in the order in which they are written; a month by its name is known as such.
struct WrittenDate {
    int first = 0, second = 0, third = -1;  ///< third: -1 without a year
    bool yearIsFirst = false;
    bool monthIsNamed = false;  ///< `second` is the month
};

/// "2026-01-05", "5.1.2026", "05/01/26", "5 January 2026", "5 Ocak"; weekday names before it are skipped.
std::optional<WrittenDate> writtenDateOf(std::string_view text);

}  // namespace quode::timetables
