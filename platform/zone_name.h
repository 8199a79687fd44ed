// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "platform/Environment.h"

namespace quode {

/// The file, in fact a link, that sets the zone of this machine.
inline constexpr const char* systemZoneFile = "/etc/localtime";

/// The name of the system's time zone, such as "Europe/Istanbul": from $TZ, else from the link /etc/localtime into the
/// time-zone database, else from /etc/timezone. "UTC" when nothing is set; empty when the zone in force has no name in the
/// database.
/// @param root  the folder that contains /etc and /usr/share/zoneinfo; "/" except in tests
std::string zoneNameFrom(const Environment& environment, const std::filesystem::path& root = "/");

}  // namespace quode
