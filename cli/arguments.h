// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What arguments of several commands mean.
#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "app/session.h"
#include "astro/VAKDate.h"
#include "terminal/command.h"

namespace quode::cli {

/// The day of --date; nothing when it was not given. Throws `Failure` (usage).
std::optional<VAKDate> requestedDate(const terminal::Arguments& arguments);

/// The minutes of --alarm, 0 to 720; nothing when it was not given. Throws `Failure` (usage).
std::optional<std::chrono::minutes> alarmMinutes(const terminal::Arguments& arguments);

/// PRAYER, one word or several, and the codes of the prayers that it names. Throws `Failure` (usage).
terminal::Parameter prayerParameter(terminal::Parameter::Kind kind);
std::vector<int> prayersOf(app::Session& session, const terminal::Arguments& arguments);

}  // namespace quode::cli
