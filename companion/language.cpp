// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/language.h"

#include <algorithm>

#include "data/sqlite_reading.h"
#include "data/user_places.h"
#include "platform/folders.h"
#include "texts/translation.h"

namespace quode {
namespace {

bool isAvailable(const std::string& language, const std::vector<std::string>& available) {
    return std::ranges::find(available, language) != available.end();
}

std::string messageLocale(const Environment& environment) {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (auto name = nonEmpty(environment, variable)) return *name;
    }
    return "";
}

/// The language of a locale such as "pt_BR.UTF-8": "pt_BR" where that has a catalogue, else "pt".
std::optional<std::string> languageOfLocale(const std::string& locale, const std::vector<std::string>& available) {
    for (const char* end : {".@", "_.@-"}) {
        const std::string language = locale.substr(0, locale.find_first_of(end));
        if (isAvailable(language, available)) return language;
    }
    return std::nullopt;
}

}  // namespace

void checkLanguage(const std::string& origin, const std::string& language, const std::vector<std::string>& available) {
    if (isAvailable(language, available)) return;
    std::string list;
    for (const std::string& each : available) list += (list.empty() ? "" : ", ") + each;
    // Translators: {0} is an option or a variable such as --lang or QUODE_LANG.
    throw UnknownLanguage(_("{0}: there is no language \"{1}\". Use one of {2}.", origin, language, list));
}

LanguageChoice chosenLanguage(const std::optional<std::string>& option, const Environment& environment,
                              const std::optional<std::string>& setting, const std::vector<std::string>& available) {
    if (option) {
        checkLanguage("--lang", *option, available);
        return {*option, true};
    }
    if (const auto variable = nonEmpty(environment, "QUODE_LANG")) {
        checkLanguage("QUODE_LANG", *variable, available);
        return {*variable, true};
    }
    if (setting && isAvailable(*setting, available)) return {*setting, true};
    if (const auto language = languageOfLocale(messageLocale(environment), available)) return {*language, true};
    return {"en", false};
}

LanguageChoice speakChosenLanguage(const Environment& environment, const std::optional<std::string>& option) {
    const std::filesystem::path bundle = bundleFolderFrom(environment, executablePath());
    const bool isNamed = option || nonEmpty(environment, "QUODE_LANG");
    const auto setting = isNamed ? std::nullopt : storedLanguage(dataFolderFrom(environment));
    LanguageChoice choice = chosenLanguage(option, environment, setting, availableLanguages(bundle));
    useLanguage(choice.code, bundle);
    return choice;
}

std::optional<std::string> storedLanguage(const std::filesystem::path& dataFolder) {
    const std::filesystem::path file = userDatabaseFile(dataFolder);
    std::error_code error;
    if (!std::filesystem::exists(file, error) || !sqlite::isSafeToOpen(file)) return std::nullopt;
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const sqlite::Database database(opened);
    if (result != SQLITE_OK) return std::nullopt;
    const sqlite::Statement row =
        sqlite::prepare(database.get(), "SELECT VALUE FROM USER_SETTING WHERE NAME = 'language'");
    if (!row || sqlite3_step(row.get()) != SQLITE_ROW) return std::nullopt;
    return sqlite::text(row.get(), 0);
}

}  // namespace quode
