// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The user's alarms as a table.
#pragma once

#include "app/user_alarms.h"
#include "terminal/Console.h"

namespace quode::cli {

/// "adjusted by you" where the time of the prayer of a ring has minutes of the user's own; else empty.
std::string adjustmentMark(const CityRecord& city, const AlarmOccurrence& ring);

/// Prints the city whose times ring, and a blank line.
void printAlarmCity(terminal::Console& console, const app::UserAlarms& all);

/// Shows the six alarms with their next rings and, where one is on, which program rings; as text or JSON.
void showAlarms(terminal::Console& console, const app::UserAlarms& all);

}  // namespace quode::cli
