// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The alarm service, which rings what is switched on in the panel.
#pragma once

#include <filesystem>

namespace quode {

/// Starts the service that is installed beside this program, unless one runs for the data folder already. It goes on
/// when this program ends. Without such a program nothing happens.
void startAlarmService(const std::filesystem::path& dataFolder);

}  // namespace quode
