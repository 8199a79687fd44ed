// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quode {

/// The edition of the zone data in a folder such as /usr/share/zoneinfo, for example "2026f": from the first line of
/// "tzdata.zi", else from "+VERSION". Empty when neither has it.
std::string zoneEditionOf(const std::filesystem::path& folder);

/// True when an edition is newer than another. An unknown edition (empty) counts as older than every other.
bool isNewerEdition(std::string_view edition, std::string_view other);

}  // namespace quode
