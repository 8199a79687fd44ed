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

/// A zone of the system's time-zone data, read from its file (TZif, version 2 or later; RFC 8536).
class SystemZone {
  public:
    /// Reads a zone by its IANA name.
    /// @param folder  of the zone data, such as /usr/share/zoneinfo
    /// @return nothing when the file does not exist or is not a zone file
    static std::optional<SystemZone> load(const std::filesystem::path& folder, std::string_view name);

    /// Reads a zone from the bytes of a file; nothing when they are not a zone file.
    static std::optional<SystemZone> parse(std::string_view bytes);

    /// Seconds east of Greenwich at a moment.
    int offsetAt(std::chrono::sys_seconds moment) const;

    /// Seconds east of Greenwich at noon of the zone's own clock.
    int offsetAtNoon(std::chrono::sys_days day) const;

    /// True when the data mark the time at that noon as summer time.
    bool isSummerAtNoon(std::chrono::sys_days day) const;

    friend bool operator==(const SystemZone&, const SystemZone&) = default;

  private:
    struct Time {
        int offset = 0;  ///< seconds east of Greenwich
        bool isSummer = false;
        friend bool operator==(const Time&, const Time&) = default;
    };
    struct Transition {
        std::chrono::sys_seconds moment;
        Time time;  ///< from the moment on
        friend bool operator==(const Transition&, const Transition&) = default;
    };
    Time timeAt(std::chrono::sys_seconds moment) const;

    Time first_;                           ///< before the first transition
    std::vector<Transition> transitions_;  ///< in chronological order
    std::optional<PosixZone> afterwards_;  ///< after the last transition; without it the last offset continues
};

}  // namespace quode
