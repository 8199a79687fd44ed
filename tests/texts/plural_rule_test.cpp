// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/plural_rule.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quode {
namespace {

TEST(PluralRule, IsTheEnglishOneByDefault) {
    EXPECT_EQ(PluralRule().form(1), 0u);
    EXPECT_EQ(PluralRule().form(0), 1u);
    EXPECT_EQ(PluralRule().form(2), 1u);
}

TEST(PluralRule, KnowsTheThreeFormsOfRussian) {
    const PluralRule rule(
        "n%10==1 && n%100!=11 ? 0 : n%10>=2 && n%10<=4 && (n%100<10 || n%100>=20) ? 1 : 2; and the rest is ignored");
    EXPECT_EQ(rule.form(1), 0u);
    EXPECT_EQ(rule.form(11), 2u);
    EXPECT_EQ(rule.form(21), 0u);
    EXPECT_EQ(rule.form(22), 1u);
    EXPECT_EQ(rule.form(12), 2u);
    EXPECT_EQ(rule.form(1005), 2u);
}

TEST(PluralRule, KnowsTheSixFormsOfArabic) {
    const PluralRule rule("(n==0 ? 0 : n==1 ? 1 : n==2 ? 2 : n%100>=3 && n%100<=10 ? 3 : n%100>=11 ? 4 : 5)");
    const unsigned long expected[] = {0, 1, 2, 3};
    for (unsigned long n = 0; n < 4; ++n) EXPECT_EQ(rule.form(n), expected[n]) << n;
    EXPECT_EQ(rule.form(11), 4u);
    EXPECT_EQ(rule.form(100), 5u);
    EXPECT_EQ(rule.form(103), 3u);
}

TEST(PluralRule, FollowsTheOrderOfTheOperatorsOfC) {
    EXPECT_EQ(PluralRule("1+2*n").form(3), 7u);
    EXPECT_EQ(PluralRule("10-4-3").form(0), 3u);
    EXPECT_EQ(PluralRule("!n").form(0), 1u);
    EXPECT_EQ(PluralRule("n<2==1").form(1), 1u);
    EXPECT_EQ(PluralRule("1||0&&0").form(0), 1u);
}

TEST(PluralRule, RejectsWhatItCannotRead) {
    for (const char* expression : {"", "n==", "(n", "n ? 1", "system(1)", "n=1", "1 2"}) {
        EXPECT_THROW(PluralRule{expression}, std::runtime_error) << expression;
    }
    EXPECT_THROW(PluralRule{std::string(100000, '(')}, std::runtime_error);
    EXPECT_THROW(PluralRule{std::string(100000, '!')}, std::runtime_error);
}

TEST(PluralRule, SurvivesADivisionByZero) {
    EXPECT_EQ(PluralRule("7/n").form(0), 0u);
    EXPECT_EQ(PluralRule("7%n").form(0), 0u);
}

}  // namespace
}  // namespace quode
