// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "data/CityDatabase.h"
#include "data/zone_rules.h"

namespace quode {

/// Where Linux systems keep their zone files.
inline constexpr const char* systemZoneFolder = "/usr/share/zoneinfo";

/// How a stored rule differs from the system's zone data.
struct ZoneDisagreement {
    std::string zone;
    bool unknownToSystem = false;  ///< the system has no readable file for this zone; what follows is not filled then
    std::chrono::year_month_day first;
    std::chrono::year_month_day last;
    int days = 0;              ///< how many days of the range disagree
    double storedHours = 0.0;  ///< offset from Greenwich on the first disagreeing day, as stored
    double systemHours = 0.0;  ///< and as the system has it
};

/// The days from which and up to which (inclusive) clocks are compared.
struct DayRange {
    std::chrono::sys_days first;
    std::chrono::sys_days last;
};

/// The two years that begin with a day.
DayRange twoYearsFrom(std::chrono::year_month_day first);

/// Compares a stored rule with the system's zone data, day by day at local noon.
/// Returned: nothing when both agree throughout.
std::optional<ZoneDisagreement> checkZone(const StoredZone& zone, DayRange range,
                                          const std::filesystem::path& zoneFolder = systemZoneFolder);

/// The same for many zones: only those that disagree or are unknown to the system, in the given order.
std::vector<ZoneDisagreement> checkZones(std::span<const StoredZone> zones, DayRange range,
                                         const std::filesystem::path& zoneFolder = systemZoneFolder);

/// An offset from Greenwich such as "UTC+5:45"; with seconds where there are any.
std::string utcOffsetText(double hours);

/// A disagreement in one line, for example
/// "America/Vancouver: stored UTC-7, this system says UTC-8 on 127 days (2026-11-21 to 2027-03-13)".
std::string describe(const ZoneDisagreement& disagreement);

}  // namespace quode
