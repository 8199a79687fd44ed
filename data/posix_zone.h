// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace quode {

/// The day and moment of a yearly change of the clocks: the given weekday of a month at a wall-clock time.
struct PosixChange {
    int month = 1;    ///< 1..12
    int week = 1;     ///< 1..4, 5 = last
    int weekday = 0;  ///< 0 = Sunday .. 6 = Saturday
    int seconds = 0;  ///< after midnight of that day, on the clock before the change; may be negative or above a day

    /// The day of the rule; the change itself may be on another day.
    std::chrono::sys_days namedDay(std::chrono::year year) const;

    friend bool operator==(const PosixChange&, const PosixChange&) = default;
};

/// A zone as in the last line of a zone file, in the notation of the TZ environment variable (POSIX). "Summer time" is the
/// second time of the line; for one zone (Dublin) that is winter, an hour less than the standard time.
struct PosixZone {
    struct Summer {
        int offset = 0;  ///< seconds east of Greenwich
        PosixChange start;
        PosixChange end;

        friend bool operator==(const Summer&, const Summer&) = default;
    };
    int offset = 0;  ///< seconds east of Greenwich, standard time
    std::optional<Summer> summer;

    /// Seconds east of Greenwich at a moment.
    int offsetAt(std::chrono::sys_seconds moment) const { return isSummerAt(moment) ? summer->offset : offset; }

    /// True when the second time is in force at a moment.
    bool isSummerAt(std::chrono::sys_seconds moment) const;

    friend bool operator==(const PosixZone&, const PosixZone&) = default;
};

/// Reads such a line, for example "CET-1CEST,M3.5.0,M10.5.0/3". Yearly changes must be given by weekdays (Mm.w.d), as in
/// all zones.
/// @return nothing for any other text
std::optional<PosixZone> parsePosixZone(std::string_view text);

}  // namespace quode
