// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>

#include "companion/RingRecords.h"
#include "platform/Uptime.h"

namespace quode {

/// A moment by the device's clock and by the time that it has run.
struct Present {
    std::chrono::sys_seconds clock{};
    Uptime uptime;
};

/// What the clock showed when the device started, in seconds since 1970.
inline std::chrono::seconds zeroOf(const Present& present) {
    return present.clock.time_since_epoch() - std::chrono::floor<std::chrono::seconds>(present.uptime.time);
}

/// A clock that shows an earlier moment has not been set yet, as on a device whose battery is empty.
inline constexpr std::chrono::sys_seconds earliestClock =
    std::chrono::sys_days(std::chrono::year(2020) / std::chrono::January / 1);

/// How far all alarms have been decided.
///
/// The clock may be wrong for a while. What it has run ahead was not decided by right: when it goes back, what is
/// decided goes back with it. How far it goes back follows from the time that the device has run.
class DecidedTime {
  public:
    /// What to decide now.
    struct Span {
        std::chrono::sys_seconds since{};  ///< all until then is decided
        std::chrono::seconds shift{0};     ///< by how much the clock was set, as far as that is known
        bool isTakenBack = false;          ///< what was decided after `since` is open again
        /// The clock is what it was before it jumped, when the device had run for so long.
        std::optional<std::chrono::milliseconds> wrongSince;
        /// Rings until then are left for later: the clock has just jumped over them, perhaps in error.
        std::chrono::sys_seconds heldUntil = std::chrono::sys_seconds::min();
        bool holds(std::chrono::sys_seconds due) const { return due <= heldUntil; }
    };

    /// note   of an earlier process, if any
    explicit DecidedTime(std::optional<DecidedNote> note);

    /// Compares the present with what was decided last.
    Span begin(const Present& present);

    /// All until the present is decided, but for what is held.
    void finish(const Present& present);

    /// When to decide held rings; nothing without any.
    std::optional<std::chrono::sys_seconds> holdEnds(const Present& present) const;

    /// Until when all is decided, and by which clock; nothing before the first time.
    const std::optional<DecidedNote>& note() const { return note_; }

  private:
    struct Hold {
        std::chrono::sys_seconds until{};  // up to this moment of the clock
        std::chrono::milliseconds end{};   // in the time that the device has run
    };

    std::optional<std::chrono::milliseconds> followJump(std::chrono::seconds zeroBefore, std::chrono::seconds zero,
                                                        std::chrono::milliseconds uptime);
    void followClock(const Present& present, Span& span);

    std::optional<DecidedNote> note_;
    std::optional<Hold> hold_;
};

}  // namespace quode
