// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/language.h"

#include <gtest/gtest.h>

#include "support/environment_of.h"

namespace quode {
namespace {

using test::environmentOf;

const std::vector<std::string> available{"ar", "de", "en", "pt", "pt_BR", "tr"};

TEST(Language, IsThatOfTheOptionFirst) {
    const auto choice = chosenLanguage("tr", environmentOf({{"QUODE_LANG", "ar"}, {"LANG", "de_DE"}}), "de", available);
    EXPECT_EQ(choice.code, "tr");
    EXPECT_TRUE(choice.isGiven);
}

TEST(Language, IsThatOfTheEnvironmentSecond) {
    EXPECT_EQ(chosenLanguage({}, environmentOf({{"QUODE_LANG", "ar"}, {"LC_ALL", "tr_TR"}}), "de", available).code,
              "ar");
}

TEST(Language, IsThatOfTheSettingThird) {
    EXPECT_EQ(chosenLanguage({}, environmentOf({{"QUODE_LANG", ""}, {"LC_ALL", "tr_TR"}}), "de", available).code, "de");
}

TEST(Language, IsThatOfTheLocaleLast) {
    EXPECT_EQ(chosenLanguage({}, environmentOf({{"LC_ALL", "tr_TR.UTF-8"}, {"LANG", "de_DE"}}), {}, available).code,
              "tr");
    EXPECT_EQ(chosenLanguage({}, environmentOf({{"LC_MESSAGES", "ar"}, {"LANG", "de_DE"}}), "", available).code, "ar");
    EXPECT_EQ(chosenLanguage({}, environmentOf({{"LANG", "de@euro"}, {"LC_TIME", "tr_TR"}}), "auto", available).code,
              "de");
    EXPECT_EQ(chosenLanguage({}, environmentOf({{"LANG", "pt_BR.UTF-8"}}), {}, available).code, "pt_BR");
    EXPECT_EQ(chosenLanguage({}, environmentOf({{"LANG", "pt_PT.UTF-8"}}), {}, available).code, "pt");
}

TEST(Language, IsEnglishWhereNothingNamesAnAvailableOne) {
    for (const char* locale : {"C", "POSIX", "C.UTF-8", "xx_YY", "american english", "../de"}) {
        const auto choice = chosenLanguage({}, environmentOf({{"LC_ALL", locale}}), "xx", available);
        EXPECT_EQ(choice.code, "en") << locale;
        EXPECT_FALSE(choice.isGiven) << locale;
    }
    EXPECT_TRUE(chosenLanguage({}, environmentOf({{"LANG", "en_GB"}}), {}, available).isGiven);
}

TEST(Language, AskedForWithoutACatalogueIsRefused) {
    EXPECT_THROW(chosenLanguage("xx", environmentOf({}), {}, available), UnknownLanguage);
    try {
        chosenLanguage({}, environmentOf({{"QUODE_LANG", "es"}}), {}, available);
        FAIL();
    } catch (const UnknownLanguage& error) {
        EXPECT_STREQ(error.what(), "QUODE_LANG: there is no language \"es\". Use one of ar, de, en, pt, pt_BR, tr.");
    }
}

}  // namespace
}  // namespace quode
