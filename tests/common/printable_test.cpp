// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/printable.h"

#include <gtest/gtest.h>

namespace quode {
namespace {

TEST(Printable, LeavesOutWhatATerminalObeys) {
    EXPECT_EQ(printable("A\x1B[31mB\a\b\x7F"), "A[31mB");
    EXPECT_EQ(printable("A\xC2\x9B"
                        "31mB"),
              "A31mB");  // the control sequence introducer of C1
    EXPECT_EQ(printable("A\nB\tC\r"), "ABC");
    EXPECT_EQ(printableLines("A\nB\tC\r\x1B"), "A\nB\tC");
}

TEST(Printable, LeavesOutMarksThatReorderWhatFollows) {
    EXPECT_EQ(printable("abc\xE2\x80\xAE"
                        "def"),
              "abcdef");
    EXPECT_EQ(printable("\xE2\x80\xAA\xE2\x80\xAC"), "");
    EXPECT_EQ(printable("a\u200Eb\u2066c\u2067d\u2068e\u2069f"), "abcdef");
    EXPECT_TRUE(hasControls("a\u2069"));
}

TEST(Printable, LeavesOutSeparatorsOfLines) {
    EXPECT_EQ(printable("a\u2028b\u2029c"), "abc");
    EXPECT_EQ(printableLines("a\u2028b\u2029c"), "abc");
}

TEST(Printable, KeepsTheIsolatedPartsOfAMessage) {
    EXPECT_EQ(printableLines("\u2068a\u2069\nb\u202E"), "\u2068a\u2069\nb");
}

TEST(Printable, KeepsLettersOfEveryScriptAndBrokenBytes) {
    for (const char* text :
         {"Łódź", "القاهرة", "東京", "İstanbul", "می\u200Cروم", "…", "–", "é", "\xC2", "\xE2\x80", ""}) {
        EXPECT_EQ(printable(text), text);
        EXPECT_FALSE(hasControls(text)) << text;
    }
    EXPECT_TRUE(hasControls("Bad\x1B]0;title\a"));
}

}  // namespace
}  // namespace quode
