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
    bool unknownToSystem = false;  ///< the system has no readable file for this zone; the other fields stay unset
    std::chrono::year_month_day first;
    std::chrono::year_month_day last;
    int days = 0;              ///< the number of days that differ
    double storedHours = 0.0;  ///< offset from Greenwich on the first such day, as stored
    double systemHours = 0.0;  ///< the same by the system's data
};

/// The days on which clocks are compared, first and last included.
struct DayRange {
    std::chrono::sys_days first;
    std::chrono::sys_days last;
};

/// The two years that begin with a day.
DayRange twoYearsFrom(std::chrono::year_month_day first);

/// Compares a stored rule with the system's zone data, day by day at local noon.
/// @return nothing when both agree on all days
std::optional<ZoneDisagreement> checkZone(const StoredZone& zone, DayRange range,
                                          const std::filesystem::path& zoneFolder = systemZoneFolder);

/// The same for many zones.
/// @return those that differ or are unknown to the system, in the given order
std::vector<ZoneDisagreement> checkZones(std::span<const StoredZone> zones, DayRange range,
                                         const std::filesystem::path& zoneFolder = systemZoneFolder);

/// The text of an offset from Greenwich, such as "UTC+5:45"; with seconds where they are not 0.
std::string utcOffsetText(double hours);

/// A disagreement in one line, for example
/// "America/Vancouver: stored UTC-7, this system says UTC-8 on 127 days (2026-11-21 to 2027-03-13)".
std::string describe(const ZoneDisagreement& disagreement);

}  // namespace quode
