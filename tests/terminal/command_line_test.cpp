// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "terminal/command_line.h"

namespace quode::terminal {
namespace {

TEST(LanguageOption, IsFoundBeforeTheRestIsRead) {
    EXPECT_EQ(languageOption({"today", "--lang", "de", "--nonsense"}), "de");
    EXPECT_EQ(languageOption({"--lang=ar"}), "ar");
    EXPECT_EQ(languageOption({"--lang="}), "");
    EXPECT_EQ(languageOption({"--lang"}), std::nullopt);
    EXPECT_EQ(languageOption({"--", "--lang", "de"}), std::nullopt);
    EXPECT_EQ(languageOption({}), std::nullopt);
}

}  // namespace
}  // namespace quode::terminal
