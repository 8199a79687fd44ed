// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "terminal/text_layout.h"

namespace quode::terminal {
namespace {

TEST(DisplayWidth, CountsColumnsNotBytes) {
    EXPECT_EQ(displayWidth(""), 0);
    EXPECT_EQ(displayWidth("Yatsı"), 5);
    EXPECT_EQ(displayWidth("İsfirâr-ı Şems"), 14);
    EXPECT_EQ(displayWidth("e\u0301"), 1);  // a combining accent
    EXPECT_EQ(displayWidth("東京"), 4);
    EXPECT_EQ(displayWidth("☀"), 1);
    EXPECT_EQ(displayWidth("\x1b[1mbold\x1b[0m"), 4);
}

TEST(TextTable, KeepsColumnsBelowEachOther) {
    TextTable table({TextTable::Align::left, TextTable::Align::right, TextTable::Align::left});
    table.add({"Öğle", "9", "a"});
    table.add({"I", "10", ""});
    EXPECT_EQ(table.lines(unlimitedWidth), (std::vector<std::string>{"Öğle   9  a", "I     10"}));
}

TEST(TextTable, LeavesOutEmptyColumns) {
    TextTable table({TextTable::Align::left, TextTable::Align::left, TextTable::Align::left});
    table.add({"a", "", "b"});
    EXPECT_EQ(table.lines(unlimitedWidth), std::vector<std::string>{"a  b"});
}

TEST(TextTable, WrapsTheWidestTextsWhereItIsTooWide) {
    TextTable table({TextTable::Align::left, TextTable::Align::right, TextTable::Align::left});
    table.add({"label", "12", "a remark that is longer than its line"});
    table.add({"other", "3", "short"});
    EXPECT_EQ(table.lines(30),
              (std::vector<std::string>{"label  12  a remark that is\n           longer than its\n           line",
                                        "other   3  short"}));
}

TEST(TextTable, LetsCellsFollowEachOtherWhereColumnsDoNotFit) {
    TextTable table({TextTable::Align::right, TextTable::Align::right});
    table.add({"a thousand", "two thousand"});
    EXPECT_EQ(table.lines(14), std::vector<std::string>{"a thousand\n    two\n    thousand"});
}

TEST(Wrapping, BreaksWordsOfWideLetters) {
    EXPECT_EQ(wrapped("東京都千代田区", 8, 2), "東京都千\n  代田区");
    EXPECT_EQ(wrapped("a 東京都千代田区", 8, 0), "a\n東京都千\n代田区");
}

TEST(Wrapping, KeepsLinesThatFitAndTheirBeginnings) {
    EXPECT_EQ(fitted("one\n\n  two", 10), "one\n\n  two");
    EXPECT_EQ(fitted("  one two three\nfour", 10), "  one two\n  three\nfour");
}

TEST(Wrapping, BreaksAtBlanks) {
    EXPECT_EQ(wrapped("one two three", 7, 2), "one two\n  three");
    EXPECT_EQ(wrapped("one/two three", 5, 0), "one/two\nthree");  // a path
    EXPECT_EQ(wrapped("öö öö", 5, 0), "öö öö");
}

}  // namespace
}  // namespace quode::terminal
