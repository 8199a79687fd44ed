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

    /// The day that the rule names; the change may fall on another one.
    std::chrono::sys_days namedDay(std::chrono::year year) const;

    friend bool operator==(const PosixChange&, const PosixChange&) = default;
};

/// A zone as the last line of a zone file gives it, in the notation of the TZ environment variable. "Summer time" is
/// what the line gives second; for one zone (Dublin) that is winter, an hour less than the standard.
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

    /// Whether the second time is in force at a moment.
    bool isSummerAt(std::chrono::sys_seconds moment) const;

    friend bool operator==(const PosixZone&, const PosixZone&) = default;
};

/// Reads such a line, for example "CET-1CEST,M3.5.0,M10.5.0/3". Yearly changes must be given by weekdays (Mm.w.d), as
/// all zones have them; nothing is returned for anything else.
std::optional<PosixZone> parsePosixZone(std::string_view text);

}  // namespace quode
