// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The days on which clocks differ from the yearly rules of their zones, as the zone data of this machine have them.
#pragma once

#include <filesystem>
#include <string>

namespace quode::places {

/// The lines of zone_days.tsv, its header included: each run of days from `firstKnownDay` to `lastKnownDay` on which
/// the offset at noon is not that of the yearly rule.
/// dataFolder   the place data, with the yearly rules
/// zoneFolder   zone files, such as those in /usr/share/zoneinfo
/// Errors: std::runtime_error when the zone data are of another edition than the place data, or lack a zone.
std::string zoneDaysTable(const std::filesystem::path& dataFolder, const std::filesystem::path& zoneFolder);

}  // namespace quode::places
