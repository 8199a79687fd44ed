// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace quode {

/// What to do about a ring.
enum class RingDecision {
    wait,      ///< its moment has not come
    ring,      ///< its moment is now
    ringLate,  ///< it was missed, by little: it rings and says so
    drop,      ///< it was missed by too much
};

/// A ring that is late by less than this is in time: the minute that is shown is not over.
inline constexpr std::chrono::seconds stillInTime{60};

/// A ring that is later than this is of no use any more.
inline constexpr std::chrono::minutes latestRing{15};

/// Decides on a ring by the moment for which it was set and the present one.
RingDecision decideRing(std::chrono::sys_seconds ringAt, std::chrono::sys_seconds now);

}  // namespace quode
