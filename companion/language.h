// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Which language every program speaks.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/Environment.h"

namespace quode {

/// A requested language that has no catalogue. The message names those that have one.
class UnknownLanguage : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct LanguageChoice {
    std::string code;      ///< such as "de"
    bool isGiven = false;  ///< false: nothing names a language that has a catalogue, and English stands in
};

/// The language to speak. The first of these that names one decides:
///   1. the option of the command line,
///   2. the environment variable QUODE_LANG,
///   3. the setting in the user database; "auto" and "" name none,
///   4. the locale for messages: LC_ALL, LC_MESSAGES, LANG, the first of them that is set.
/// A setting or locale without a catalogue is passed over.
///
/// @param available  as availableLanguages() returns it
/// @throw UnknownLanguage  when the option or QUODE_LANG names a language without a catalogue
LanguageChoice chosenLanguage(const std::optional<std::string>& option, const Environment& environment,
                              const std::optional<std::string>& setting, const std::vector<std::string>& available);

/// Chooses the language by that rule, with the setting of the user database and the catalogues of the bundle, and makes
/// it that of this process. Every program calls this at its start.
/// @throw UnknownLanguage
LanguageChoice speakChosenLanguage(const Environment& environment, const std::optional<std::string>& option);

/// The language in the settings of a user database; nothing when it has none or cannot be read now.
std::optional<std::string> storedLanguage(const std::filesystem::path& dataFolder);

/// @throw UnknownLanguage  when the language has no catalogue
void checkLanguage(const std::string& origin, const std::string& language, const std::vector<std::string>& available);

}  // namespace quode
