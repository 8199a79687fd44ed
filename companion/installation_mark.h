// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Tells the events of this installation from those of another device in a folder that is exchanged between them.
#pragma once

#include <filesystem>
#include <string>

namespace quode {

/// What this installation's calendar events carry: sixteen hexadecimal digits that depend on the device and on the data
/// folder and tell neither. It stays the same when the user database is lost. Empty where the device has no identity.
std::string installationMark(const std::filesystem::path& dataFolder,
                             const std::filesystem::path& machineIdFile = "/etc/machine-id");

}  // namespace quode
