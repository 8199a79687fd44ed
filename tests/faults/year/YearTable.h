// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// When alarms are to ring, found by another way than the alarm service does.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "data/CityDatabase.h"

namespace quode::test {

/// One time of a timetable.
struct TableEntry {
    int code = 0;
    std::chrono::sys_seconds instant{};  ///< by the zone data of this system
    std::string text;                    ///< as it is printed, such as "05:12"
    std::string city;
};

/// The six times of each day of a span, as a printed timetable has them. The instants come from the printed minutes and
/// the C library's own zone data, not from the rules with which the alarms are computed.
std::vector<TableEntry> yearTable(const CityRecord& city, std::chrono::sys_days first, std::chrono::sys_days last);

}  // namespace quode::test
