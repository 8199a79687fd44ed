// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace quode {

/// How long a device has run, whatever its clock shows; the time that it slept counts. Two of them can be compared when
/// they are of the same boot.
struct Uptime {
    std::string boot;  ///< names the boot; empty where the system does not name it
    std::chrono::milliseconds time{0};

    friend bool operator==(const Uptime&, const Uptime&) = default;
};

/// Whether the time between two moments is known.
inline bool areComparable(const Uptime& a, const Uptime& b) {
    return !a.boot.empty() && a.boot == b.boot;
}

Uptime systemUptime();

}  // namespace quode
