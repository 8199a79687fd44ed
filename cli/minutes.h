// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>

#include "app/command.h"

namespace quode::cli {

/// The minutes of --alarm, 0 to 720; nothing when it was not given. Throws `Failure` (usage).
std::optional<std::chrono::minutes> alarmMinutes(const app::Arguments& arguments);

}  // namespace quode::cli
