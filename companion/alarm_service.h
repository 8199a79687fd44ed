// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What other programs can tell of the alarm service.
#pragma once

#include <filesystem>

namespace quode {

/// The file that the service of a data folder keeps locked (flock) while it runs.
std::filesystem::path alarmServiceLock(const std::filesystem::path& dataFolder);

/// Whether an alarm service runs for a data folder. Nothing is made.
bool alarmServiceRuns(const std::filesystem::path& dataFolder);

}  // namespace quode
