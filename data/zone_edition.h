// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quode {

/// The edition of the zone data in a folder such as /usr/share/zoneinfo, for example "2026f": from the first line of
/// "tzdata.zi", else from "+VERSION". Empty when neither tells it.
std::string zoneEditionOf(const std::filesystem::path& folder);

/// Whether an edition is newer than another. An edition that is not known counts as older than every other one.
bool isNewerEdition(std::string_view edition, std::string_view other);

}  // namespace quode
