// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Changes of the user's alarms. The calendar's events follow. All throw `UserDatabaseError` and `Failure`, and nothing is
// changed then.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "companion/UserDatabase.h"

namespace quode::app {

class Session;

/// Sets alarms up: what is given is set, the rest stays, with the sound of the settings where there is none.
void setUpAlarms(Session& session, const std::vector<int>& codes, std::optional<int> offset,
                 const std::optional<std::string>& sound);

/// Switches alarms. One that is switched on needs a home city, and is set up where it was not.
void switchAlarms(Session& session, const std::vector<int>& codes, bool isOn);

/// Does something with the alarms' records, altogether or not at all.
void changeAlarms(Session& session, const std::function<void(UserDatabase&)>& change);

}  // namespace quode::app
