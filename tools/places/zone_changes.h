// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the clocks of zones do beside their yearly rules, as the zone data of this machine have it.
#pragma once

#include <filesystem>
#include <string>

namespace quode::places {

/// The lines of zone_changes.tsv, its header included: for each zone whose clock differs from the rule of zones.tsv at
/// some moment between `firstKnownDay` and `lastShippedDay`, its changes up to the last one that the rule does not
/// give. The first line of a zone tells the time at the beginning.
/// dataFolder   the place data, with the yearly rules
/// zoneFolder   zone files, such as those in /usr/share/zoneinfo
/// Errors: std::runtime_error when the zone data are of another edition than the place data, lack a zone, or have
/// another rule for it.
std::string zoneChangesTable(const std::filesystem::path& dataFolder, const std::filesystem::path& zoneFolder);

}  // namespace quode::places
