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
    /// Reads a zone by its IANA name. Nothing is returned when there is no such file or it is not readable as one.
    static std::optional<SystemZone> load(const std::filesystem::path& folder, std::string_view name);

    /// Reads the bytes of a file.
    static std::optional<SystemZone> parse(std::string_view bytes);

    /// Seconds east of Greenwich at a moment.
    int offsetAt(std::chrono::sys_seconds moment) const;

    /// Seconds east of Greenwich at noon of the zone's own clock.
    int offsetAtNoon(std::chrono::sys_days day) const;

    /// Whether the data call the time at that noon summer time.
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
    std::vector<Transition> transitions_;  ///< in order of time
    std::optional<PosixZone> afterwards_;  ///< after the last transition; without it the last offset stays
};

}  // namespace quode
