// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The language packs of the bundle.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "common/LanguagePack.h"
#include "common/text_format.h"

namespace quode {
namespace {

LanguagePack shippedPack(int languageId) {
    std::ifstream file(std::string(QUODE_TEST_BUNDLE) + "/" + std::string(languageFile(languageId)));
    return parseLanguagePack(std::string(std::istreambuf_iterator<char>(file), {}));
}

std::set<std::string> keysOf(const LanguagePack& pack, const std::string& section) {
    std::set<std::string> keys;
    for (const auto& [key, text] : pack.sections().at(section)) keys.insert(key);
    return keys;
}

std::set<std::string> numbers(int first, int last) {
    std::set<std::string> texts;
    for (int number = first; number <= last; ++number) texts.insert(std::to_string(number));
    return texts;
}

class ShippedPack : public testing::TestWithParam<int> {
  protected:
    LanguagePack pack = shippedPack(GetParam());
};

TEST_P(ShippedPack, HasEverySectionAndKey) {
    EXPECT_EQ(pack.sections().size(), 4U);
    EXPECT_EQ(keysOf(pack, "PRAYERS"), (std::set<std::string>{"FAJR", "TULU", "DHUHR", "ASR", "MAGHRIB", "ISHA",
                                                              "ISHRAQ", "ASRTHANI", "I-SHAMS"}));
    EXPECT_EQ(keysOf(pack, "HIJRI MONTHS"), numbers(1, 12));
    EXPECT_EQ(keysOf(pack, "HIJRI MONTHS SHORT"), numbers(1, 12));
    std::set<std::string> common = numbers(1041, 1056);
    common.merge(numbers(1000, 1004));
    common.merge(numbers(1100, 1117));  // the compass
    common.insert({"1013", "1021", "1022", "1031", "1032"});
    EXPECT_EQ(keysOf(pack, "COMMON"), common);
}

TEST_P(ShippedPack, HasPlaceholdersJustWhereValuesAreFilledIn) {
    const std::map<std::string, std::string> formats{{"1003", "@"}, {"1013", "@"}, {"1041", "d"},  {"1049", "d"},
                                                     {"1053", "d"}, {"1054", "@"}, {"1055", "d"},  {"1106", "@"},
                                                     {"1107", "@"}, {"1108", "@"}, {"1109", "@@"}, {"1110", "@"}};
    for (const auto& [name, section] : pack.sections()) {
        for (const auto& [key, text] : section) {
            const auto format = formats.find(key);
            const std::string expected = name == "COMMON" && format != formats.end() ? format->second : "";
            EXPECT_EQ(placeholdersOf(text), expected) << name << " " << key << ": " << text;
        }
    }
}

TEST_P(ShippedPack, HasTextsWithoutStrayBlanksAndEachNameOnce) {
    for (const auto& [name, section] : pack.sections()) {
        std::set<std::string> seen;
        for (const auto& [key, text] : section) {
            ASSERT_FALSE(text.empty()) << name << " " << key;
            EXPECT_NE(text.front(), ' ') << name << " " << key;
            EXPECT_NE(text.back(), ' ') << name << " " << key;
            EXPECT_TRUE(seen.insert(text).second) << name << " " << key << " repeats " << text;
        }
    }
}

TEST_P(ShippedPack, AbbreviatesHijriMonths) {
    for (int month = 1; month <= 12; ++month) {
        const std::string key = std::to_string(month);
        EXPECT_LE(pack.text("HIJRI MONTHS SHORT", key)->size(), pack.text("HIJRI MONTHS", key)->size()) << key;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, ShippedPack,
                         testing::Values(languageTurkish, languageEnglish, languageFrench, languageGerman),
                         [](const auto& tested) { return std::string(languageName(tested.param)); });

TEST(ShippedPacks, AreWrittenInTheirOwnLanguages) {
    EXPECT_EQ(shippedPack(languageTurkish).text("PRAYERS", "FAJR"), "İmsak");
    EXPECT_EQ(shippedPack(languageEnglish).text("PRAYERS", "FAJR"), "Fajr");
    EXPECT_EQ(shippedPack(languageFrench).text("COMMON", "1000"), "Soleil");
    EXPECT_EQ(shippedPack(languageGerman).text("COMMON", "1000"), "Sonne");
}

}  // namespace
}  // namespace quode
