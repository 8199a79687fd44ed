// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/name_folding.h"

#include <gtest/gtest.h>

#include <string>

namespace quode {
namespace {

TEST(FoldedName, IgnoresCaseAndDiacritics) {
    EXPECT_EQ(foldedName("São Paulo"), "sao paulo");
    EXPECT_EQ(foldedName("ZÜRICH"), "zurich");
    EXPECT_EQ(foldedName("Đà Nẵng"), "da nang");
    EXPECT_EQ(foldedName("Ḩamāh"), "hamah");
    EXPECT_EQ(foldedName("Zagreb Č Ž Š ć"), "zagreb c z s c");
}

TEST(FoldedName, FoldsAllFourTurkishLettersI) {
    for (const char* name : {"istanbul", "İstanbul", "ISTANBUL", "ıstanbul", "İSTANBUL", "i\xCC\x87stanbul"}) {
        EXPECT_EQ(foldedName(name), "istanbul") << name;
    }
    EXPECT_EQ(foldedName("Diyarbakır, Şırnak, Ağrı, Çorum"), "diyarbakir sirnak agri corum");
}

TEST(FoldedName, FoldsLettersThatHaveNoDecomposition) {
    EXPECT_EQ(foldedName("Łódź"), "lodz");
    EXPECT_EQ(foldedName("Tromsø"), "tromso");
    EXPECT_EQ(foldedName("Đakovo"), "dakovo");
    EXPECT_EQ(foldedName("Gießen"), "giessen");
    EXPECT_EQ(foldedName("GIEẞEN"), "giessen");
    EXPECT_EQ(foldedName("Ærøskøbing"), "aeroskobing");
    EXPECT_EQ(foldedName("Œuilly"), "oeuilly");
    EXPECT_EQ(foldedName("Þorlákshöfn"), "thorlakshofn");
    EXPECT_EQ(foldedName("Ħamrun"), "hamrun");
    EXPECT_EQ(foldedName("Gəncə Ə"), "ganca a");
    EXPECT_EQ(foldedName("Hafnarfjörður"), "hafnarfjordur");
}

TEST(FoldedName, DropsApostrophesAndJoinsWordsByOneBlank) {
    for (const char* name : {"Sanaa", "Sana'a", "Sana’a", "San‘a’a", "Sanʻaʼa", "sana`a"}) {
        EXPECT_EQ(foldedName(name), "sanaa") << name;
    }
    EXPECT_EQ(foldedName("Stratford-upon-Avon"), "stratford upon avon");
    EXPECT_EQ(foldedName("  Frankfurt   (Oder) "), "frankfurt oder");
    EXPECT_EQ(foldedName("St. John's / Parish – North"), "st johns parish north");
    EXPECT_EQ(foldedName("a\tb\nc\xC2\xA0"
                         "d"),
              "a b c d");
}

TEST(FoldedName, DecomposedLettersEqualComposedOnes) {
    EXPECT_EQ(foldedName("Ko\xCC\x88ln"), foldedName("Köln"));
    EXPECT_EQ(foldedName("S\xCC\xA7"
                         "anlıurfa"),
              foldedName("Şanlıurfa"));
}

TEST(FoldedName, KeepsOtherScripts) {
    EXPECT_EQ(foldedName("مكة"), "مكة");
    EXPECT_EQ(foldedName("東京 Tokyo"), "東京 tokyo");
}

TEST(FoldedName, OfNothingNameableIsEmpty) {
    for (const char* text : {"", " ", "'", "-,;", "\x01\x02\x7F", "\xCC\x88", "...!?"})
        EXPECT_EQ(foldedName(text), "") << text;
}

TEST(FoldedName, BrokenUtf8CountsAsABlank) {
    EXPECT_EQ(foldedName("a\xFF"
                         "b"),
              "a b");
    EXPECT_EQ(foldedName("a\xC3"), "a");
    EXPECT_EQ(foldedName("\xE2\x80"), "");
    EXPECT_EQ(foldedName("\xC3(x"), "x");
    EXPECT_EQ(foldedName(std::string("a\0b", 3)), "a b");
    EXPECT_EQ(foldedName("x\xF5\x80\x80\x80y"), "x y");
}

TEST(FoldedName, OfAFoldedNameIsTheSame) {
    for (const char* name : {"Łódź", "Al Ḩudaydah", "Xi’an", "L'Haÿ-les-Roses", "Ust’-Nera"}) {
        EXPECT_EQ(foldedName(foldedName(name)), foldedName(name));
    }
}

TEST(TypingMistakes, CountsLettersAddedDroppedReplacedAndSwapped) {
    EXPECT_EQ(typingMistakes("istanbul", "istanbul", 2), 0);
    EXPECT_EQ(typingMistakes("istambul", "istanbul", 2), 1);
    EXPECT_EQ(typingMistakes("istanbu", "istanbul", 2), 1);
    EXPECT_EQ(typingMistakes("isstanbul", "istanbul", 2), 1);
    EXPECT_EQ(typingMistakes("itsanbul", "istanbul", 2), 1);
    EXPECT_EQ(typingMistakes("itsambul", "istanbul", 2), 2);
    EXPECT_EQ(typingMistakes("ab", "ba", 2), 1);
    EXPECT_EQ(typingMistakes("", "ab", 2), 2);
    EXPECT_EQ(typingMistakes("", "", 1), 0);
}

TEST(TypingMistakes, BeyondTheLimitGivesOneMoreThanTheLimit) {
    EXPECT_EQ(typingMistakes("ankara", "london", 2), 3);
    EXPECT_EQ(typingMistakes("a", "abcdefgh", 1), 2);
    EXPECT_EQ(typingMistakes("abcdefgh", "a", 1), 2);
    EXPECT_EQ(typingMistakes("istanbul", "istnabl", 1), 2);
}

TEST(TypingMistakes, IsTheSameBothWays) {
    const std::string names[] = {"paris", "pairs", "parsi", "aprsi", "prague", "p", "", "rapis", "parisparis"};
    for (const auto& a : names) {
        for (const auto& b : names) EXPECT_EQ(typingMistakes(a, b, 3), typingMistakes(b, a, 3)) << a << " " << b;
    }
}

}  // namespace
}  // namespace quode
