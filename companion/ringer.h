// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Which program rings.
#pragma once

#include <filesystem>
#include <string>

#include "companion/UserSettings.h"
#include "platform/Environment.h"

namespace quode {

/// Why the reminder program of Evolution does not ring for the alarms; empty: it does. It rings when it is installed
/// and starts with the session, and the description of the calendar is there, enabled and included in the reminders.
std::string evolutionObstacle(const Environment& environment, const std::filesystem::path& dataFolder);

/// The same without the description, which may still be written.
std::string evolutionProgramObstacle(const Environment& environment);

/// Whether Evolution's calendar service is installed, which Evolution and GNOME's calendar show calendars from.
bool evolutionIsInstalled(const Environment& environment);

/// Who rings: Evolution where it was chosen and does, else Quode itself.
Ringer ringerInEffect(const UserSettings& settings, const Environment& environment,
                      const std::filesystem::path& dataFolder);

}  // namespace quode
