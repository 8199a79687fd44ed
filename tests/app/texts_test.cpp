// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/texts.h"

#include <gtest/gtest.h>

#include <set>
#include <span>

#include "common/LanguagePack.h"
#include "common/utf8.h"

namespace quode::app {
namespace {

/// All texts of a language in the order of declaration: the record holds nothing else.
std::span<const std::string_view> all(const Texts& texts) {
    static_assert(sizeof(Texts) % sizeof(std::string_view) == 0);
    return {reinterpret_cast<const std::string_view*>(&texts), sizeof(Texts) / sizeof(std::string_view)};
}

/// Numbered ones may stand in another order.
std::multiset<std::string> placeholders(std::string_view text) {
    std::multiset<std::string> found;
    for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
        found.emplace(text.substr(at, text.find('}', at) - at + 1));
    }
    return found;
}

TEST(Texts, AreThereInEveryLanguageWithTheSamePlaceholders) {
    const auto english = all(textsOf(languageEnglish));
    for (const int language : {languageTurkish, languageFrench, languageGerman}) {
        const auto texts = all(textsOf(language));
        for (std::size_t i = 0; i < english.size(); ++i) {
            EXPECT_FALSE(texts[i].empty()) << languageName(language) << ", after: " << english[i];
            EXPECT_EQ(placeholders(texts[i]), placeholders(english[i])) << languageName(language) << ": " << texts[i];
            EXPECT_TRUE(isUtf8(texts[i])) << texts[i];
        }
    }
}

TEST(Texts, OfAnUnknownLanguageAreEnglish) {
    EXPECT_EQ(textsOf(17).weekdays[0], "Sunday");
}

TEST(Decimal, IsWrittenAsTheLanguageDoes) {
    EXPECT_EQ(decimal(textsOf(languageEnglish), 3.25, 2), "3.25");
    EXPECT_EQ(decimal(textsOf(languageGerman), 3.25, 2), "3,25");
    EXPECT_EQ(decimal(textsOf(languageFrench), 3.26, 1, true), "+3,3");
    EXPECT_EQ(decimal(textsOf(languageTurkish), -3.26, 1, true), "-3,3");
    EXPECT_EQ(decimal(textsOf(languageGerman), 3.25, 0), "3");
}

TEST(RumiMonths, BeginWithMarch) {
    EXPECT_EQ(rumiMonth(1), "Mart");
    EXPECT_EQ(rumiMonth(12), "Şubat");
    EXPECT_EQ(rumiMonth(0), "");
    EXPECT_EQ(rumiMonth(13), "");
}

}  // namespace
}  // namespace quode::app
