// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/language.h"

#include <algorithm>

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

}  // namespace quode
