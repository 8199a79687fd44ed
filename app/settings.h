// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The user's settings by their names: what each can be, and how it is changed. Every front changes them here.
#pragma once

#include <span>
#include <string>

#include "companion/UserSettings.h"

namespace quode::app {

class Session;

/// A setting. Its change throws `Failure` (usage) for a value that it cannot have, and `UserDatabaseError`.
struct Setting {
    const char* key;
    const char* meaning;  ///< to be translated
    std::string (*value)(const UserSettings&);
    std::string (*choices)(Session&);
    void (*change)(Session&, const std::string& value);
};

/// All of them, in the order in which they are shown.
std::span<const Setting> allSettings();

/// A setting by its key. Throws `Failure` (usage), which names all keys.
const Setting& settingNamed(const std::string& key);

/// Changes a setting, such as "colors" to "3".
void changeSetting(Session& session, const std::string& key, const std::string& value);

/// The settings as they are now; the defaults without a user database. Throws `UserDatabaseError`.
UserSettings presentSettings(Session& session);

}  // namespace quode::app
