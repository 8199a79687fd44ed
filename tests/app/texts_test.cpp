// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "app/command_line.h"
#include "app/text_layout.h"

namespace quode::app {
namespace {

TEST(DecimalText, HasTheMarkOfTheLanguage) {
    EXPECT_EQ(decimalText(3.25, 2, "."), "3.25");
    EXPECT_EQ(decimalText(3.25, 2, ","), "3,25");
    EXPECT_EQ(decimalText(3.26, 1, ",", true), "+3,3");
    EXPECT_EQ(decimalText(-3.26, 1, "٫", true), "-3٫3");
    EXPECT_EQ(decimalText(3.25, 0, ","), "3");
}

TEST(LanguageOption, IsFoundBeforeTheRestIsRead) {
    EXPECT_EQ(languageOption({"today", "--lang", "de", "--nonsense"}), "de");
    EXPECT_EQ(languageOption({"--lang=ar"}), "ar");
    EXPECT_EQ(languageOption({"--lang="}), "");
    EXPECT_EQ(languageOption({"--lang"}), std::nullopt);
    EXPECT_EQ(languageOption({"--", "--lang", "de"}), std::nullopt);
    EXPECT_EQ(languageOption({}), std::nullopt);
}

}  // namespace
}  // namespace quode::app
