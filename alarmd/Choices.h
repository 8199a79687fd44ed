// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "companion/UserDatabase.h"
#include "companion/UserSettings.h"

namespace quode {

/// All that the user has chosen, as it was read last.
struct Choices {
    std::vector<UserCity> cities;
    std::optional<UserCity> home;
    std::vector<UserAlarm> alarms;
    UserSettings settings;
    Ringer ringer = Ringer::quode;  ///< who really rings; the settings say who is to

    /// The alarms that are on.
    std::vector<AlarmRule> rules() const;

    /// Nothing for a code that has no alarm.
    const UserAlarm* alarm(int code) const;

    /// As one text, which changes with every choice.
    std::string text() const;
};

Choices readChoices(UserDatabase& database);

/// The choices in a database that another program keeps locked, as they were before it began to change anything. Nothing
/// when that is unknown.
std::optional<Choices> readChoicesBehindLock(const std::filesystem::path& dataFolder, const CityDatabase& cities,
                                             const Clock& device);

/// Writes what was chosen into a fresh database. Alarms that are on keep the identifier of their event.
void restoreChoices(UserDatabase& database, const Choices& choices);

}  // namespace quode
