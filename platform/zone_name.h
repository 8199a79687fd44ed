// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "platform/Environment.h"

namespace quode {

/// The name of the zone that a system is set to, such as "Europe/Istanbul": from $TZ, else from /etc/localtime, which
/// points into the time-zone database, else from /etc/timezone. "UTC" when nothing is set; empty when the zone in force
/// has no name in the database.
/// @param root  where /etc and /usr/share/zoneinfo are; "/" but for tests
std::string zoneNameFrom(const Environment& environment, const std::filesystem::path& root = "/");

}  // namespace quode
