// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace quode {

/// The time since a device started, independent of its clock and including sleep. Two values are comparable when they are
/// of the same boot.
struct Uptime {
    std::string boot;  ///< identifies the boot; empty where the system does not
    std::chrono::milliseconds time{0};

    friend bool operator==(const Uptime&, const Uptime&) = default;
};

/// True when the time between two values is known.
inline bool areComparable(const Uptime& a, const Uptime& b) {
    return !a.boot.empty() && a.boot == b.boot;
}

/// The uptime of this machine.
Uptime systemUptime();

}  // namespace quode
