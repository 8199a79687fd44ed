// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The user's alarms as a table.
#pragma once

#include "app/user_alarms.h"
#include "terminal/Console.h"

namespace quode::cli {

/// Prints the city whose times ring, and a blank line.
void printAlarmCity(terminal::Console& console, const app::UserAlarms& all);

/// Shows the six alarms with their next rings and, where one is on, which program rings; as text or JSON.
void showAlarms(terminal::Console& console, const app::UserAlarms& all);

}  // namespace quode::cli
