// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The texts of the shared services: language pack and month names.
#include <exception>

#include "astro/prayer.h"
#include "common/GlobalFuncs.h"

namespace quode {

std::optional<std::string> GlobalFuncs::loadLanguageFile() noexcept {
    langPack_ = LanguagePack();
    std::string problem;
    try {
        const std::string path = appBundlePath_ + "/" + std::string(languageFile(languageId_));
        problem = "Language file not found : " + path;
        if (fileExists(path)) {
            problem = "Language file cannot be used : " + path;
            langPack_ = parseLanguagePack(platform_.files->read(path));
            return std::nullopt;
        }
    } catch (const std::exception& error) {
        problem += std::string(" : ") + error.what();
    }
    NSLogToFile(problem);
    return problem;
}

std::optional<std::string> GlobalFuncs::GetTextPrayLabels(std::int32_t id) const {
    return isPrayer(id) ? langPack_.text("PRAYERS", factsOf(id).packKey) : std::nullopt;
}

std::optional<std::string> GlobalFuncs::GetTextHijriMonth(std::int32_t month) const {
    return langPack_.text("HIJRI MONTHS", std::to_string(month));
}

std::optional<std::string> GlobalFuncs::GetTextHijriMonthShort(std::int32_t month) const {
    return langPack_.text("HIJRI MONTHS SHORT", std::to_string(month));
}

std::optional<std::string> GlobalFuncs::GetKeyValue(std::int32_t id) {
    try {
        return langPack_.text("COMMON", std::to_string(id));
    } catch (const std::exception& error) {
        NSLogToFile(error.what());
        return std::string();
    }
}

std::string GlobalFuncs::GetTextGregorianMonth(std::int32_t month) const {
    return platform_.locale->monthName(month);
}

std::string GlobalFuncs::GetTextGregorianMonthShort(std::int32_t month) const {
    return platform_.locale->shortMonthName(month);
}

}  // namespace quode
