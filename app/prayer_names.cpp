// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/prayer_names.h"

#include <fmt/format.h>

#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <string>

#include "app/day_view.h"
#include "app/session.h"
#include "common/LanguagePack.h"
#include "common/numbers.h"
#include "data/name_folding.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr const char* packSection = "PRAYERS";

/// The pack of a language; an empty one when it cannot be read.
LanguagePack packOf(const Session& session, int languageId) {
    std::ifstream file(session.bundle() / languageFile(languageId), std::ios::binary);
    try {
        return parseLanguagePack(std::string(std::istreambuf_iterator<char>(file), {}));
    } catch (const std::runtime_error&) {
        return {};
    }
}

std::optional<int> prayerByKey(const std::string& folded) {
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        const PrayerFacts& facts = factsOf(code);
        for (const char* name : {facts.key, facts.packKey, facts.plainName}) {
            if (folded == foldedName(name)) return code;
        }
    }
    const std::optional<int> number = numberOf<int>(folded);
    if (number && *number >= 1 && *number <= alarmNumber(lastMainPrayer)) return prayerOfAlarm(*number);
    return std::nullopt;
}

std::optional<int> prayerInPack(const LanguagePack& pack, const std::string& folded) {
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        const std::optional<std::string> name = pack.text(packSection, factsOf(code).packKey);
        if (name && foldedName(*name) == folded) return code;
    }
    return std::nullopt;
}

std::optional<int> prayerNamed(Session& session, std::string_view name) {
    const std::string folded = foldedName(name);
    if (const auto code = prayerByKey(folded)) return code;
    // The user's own language first, should two languages mean different prayers by one word.
    const int own = session.services().languageId();
    for (const int language :
         {own, int(languageTurkish), int(languageEnglish), int(languageFrench), int(languageGerman)}) {
        if (const auto code = prayerInPack(packOf(session, language), folded)) return code;
    }
    return std::nullopt;
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (c == ' ' || c == ',' || c == '\t') {
            if (!words.back().empty()) words.emplace_back();
        } else {
            words.back() += c;
        }
    }
    if (words.back().empty()) words.pop_back();
    return words;
}

[[noreturn]] void failUnknown(Session& session, std::string_view word) {
    std::string names, keys;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        names += (names.empty() ? "" : ", ") + session.prayerName(code);
        keys += (keys.empty() ? "" : ", ") + prayerKey(code);
    }
    throw Failure(ExitCode::usage,
                  _("There is no prayer \"{}\". Use one of {} ({}; 1 to 6), or all.", word, names, keys));
}

}  // namespace

std::vector<int> prayersNamed(Session& session, std::string_view words) {
    if (const auto code = prayerNamed(session, words)) return {*code};  // a name of several words, perhaps
    std::set<int> codes;
    for (const std::string& word : wordsOf(words)) {
        const bool meansAll = foldedName(word) == "all";
        const std::optional<int> code = meansAll ? std::nullopt : prayerNamed(session, word);
        if (!meansAll && !code) failUnknown(session, word);
        if (code) codes.insert(*code);
        for (int each = firstPrayer; meansAll && each <= lastMainPrayer; ++each) codes.insert(each);
    }
    if (codes.empty()) failUnknown(session, words);
    return {codes.begin(), codes.end()};
}

}  // namespace quode::app
