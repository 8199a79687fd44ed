// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What arguments of several commands mean.
#pragma once

#include <chrono>
#include <optional>

#include "astro/VAKDate.h"
#include "terminal/command.h"

namespace quode::cli {

/// The day of --date; nothing when it was not given. Throws `Failure` (usage).
std::optional<VAKDate> requestedDate(const terminal::Arguments& arguments);

/// The minutes of --alarm, 0 to 720; nothing when it was not given. Throws `Failure` (usage).
std::optional<std::chrono::minutes> alarmMinutes(const terminal::Arguments& arguments);

}  // namespace quode::cli
