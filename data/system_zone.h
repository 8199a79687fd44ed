// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/posix_zone.h"

namespace quode {

/// The clock of a zone: of the system's time-zone data, read from its file (TZif, version 2 or later; RFC 8536), or of
/// the edition that Quode ships.
class SystemZone {
  public:
    struct Time {
        int offset = 0;  ///< seconds east of Greenwich
        bool isSummer = false;
        friend bool operator==(const Time&, const Time&) = default;
    };
    struct Change {
        std::chrono::sys_seconds moment;
        Time time;  ///< from the moment on
        friend bool operator==(const Change&, const Change&) = default;
    };

    /// Reads a zone by its IANA name.
    /// @param folder  of the zone data, such as /usr/share/zoneinfo
    /// @return nothing when the file does not exist or is not a zone file
    static std::optional<SystemZone> load(const std::filesystem::path& folder, std::string_view name);

    /// Reads a zone from the bytes of a file; nothing when they are not a zone file.
    static std::optional<SystemZone> parse(std::string_view bytes);

    /// Reads the text of a zone in the city database: its changes, each ended by a semicolon, and the rule after them.
    /// A change is its moment in seconds since 1970, the offset from then on in seconds, and 1 for summer time:
    /// "1577750400 -21600 0;CST6CDT,M3.2.0,M11.1.0".
    static std::optional<SystemZone> parseText(std::string_view text);

    /// The time at a moment.
    Time timeAt(std::chrono::sys_seconds moment) const;

    /// Seconds east of Greenwich at a moment.
    int offsetAt(std::chrono::sys_seconds moment) const;

    /// Seconds east of Greenwich at noon of the zone's own clock.
    int offsetAtNoon(std::chrono::sys_days day) const;

    /// True when the data mark the time at that noon as summer time.
    bool isSummerAtNoon(std::chrono::sys_days day) const;

    /// The changes that are listed, in order of time.
    const std::vector<Change>& changes() const { return changes_; }

    /// The yearly rule after the last of them; without one the last time stays.
    const std::optional<PosixZone>& afterwards() const { return afterwards_; }

    friend bool operator==(const SystemZone&, const SystemZone&) = default;

  private:
    Time first_;                           ///< before the first change
    std::vector<Change> changes_;          ///< in chronological order
    std::optional<PosixZone> afterwards_;  ///< after the last change; without it the last offset continues
};

}  // namespace quode
