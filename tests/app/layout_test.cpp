// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "app/text_layout.h"

namespace quode::app {
namespace {

TEST(DisplayWidth, CountsColumnsNotBytes) {
    EXPECT_EQ(displayWidth(""), 0);
    EXPECT_EQ(displayWidth("Yatsı"), 5);
    EXPECT_EQ(displayWidth("İsfirâr-ı Şems"), 14);
    EXPECT_EQ(displayWidth("e\u0301"), 1);  // a combining accent
    EXPECT_EQ(displayWidth("東京"), 4);
    EXPECT_EQ(displayWidth("☀"), 1);
}

TEST(TextTable, KeepsColumnsBelowEachOther) {
    TextTable table({TextTable::Align::left, TextTable::Align::right, TextTable::Align::left});
    table.add({"Öğle", "9", "a"});
    table.add({"I", "10", ""});
    EXPECT_EQ(table.lines(), (std::vector<std::string>{"Öğle   9  a", "I     10"}));
}

TEST(TextTable, LeavesOutEmptyColumns) {
    TextTable table({TextTable::Align::left, TextTable::Align::left, TextTable::Align::left});
    table.add({"a", "", "b"});
    EXPECT_EQ(table.lines(), std::vector<std::string>{"a  b"});
}

TEST(Wrapping, BreaksAtBlanks) {
    EXPECT_EQ(wrapped("one two three", 7, 2), "one two\n  three");
    EXPECT_EQ(wrapped("unbreakable", 4, 0), "unbreakable");
    EXPECT_EQ(wrapped("öö öö", 5, 0), "öö öö");
}

}  // namespace
}  // namespace quode::app
