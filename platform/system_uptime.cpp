// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <ctime>
#include <fstream>

#include "platform/Uptime.h"

namespace quode {
namespace {

std::string bootName() {
    std::string name;
    std::ifstream("/proc/sys/kernel/random/boot_id") >> name;
    return name;
}

}  // namespace

Uptime systemUptime() {
    static const std::string boot = bootName();
    timespec time{};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    const auto passed = std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    return {boot, std::chrono::floor<std::chrono::milliseconds>(passed)};
}

}  // namespace quode
