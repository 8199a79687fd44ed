// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace quode {
namespace {

TEST(Numbers, AreReadOnlyWhereTheWholeTextIsOne) {
    EXPECT_EQ(numberOf<double>(" 41.5 "), 41.5);
    EXPECT_EQ(numberOf<int>("+7"), 7);
    EXPECT_EQ(numberOf<int>("-7"), -7);
    for (const char* text : {"", " ", "41,5", "41.5x", "+-5", "nan", "inf", "1e999", "0x10"}) {
        EXPECT_EQ(numberOf<double>(text), std::nullopt) << text;
    }
    EXPECT_EQ(numberOf<int>("3000000000"), std::nullopt);
}

TEST(Numbers, AreReadFromTheBeginningOfAText) {
    EXPECT_EQ(leadingNumber<double>(" +41.5 north"), 41.5);
    EXPECT_EQ(leadingNumber<int>("12;30"), 12);
    EXPECT_EQ(leadingNumber<double>("nan"), 0.0);
    EXPECT_EQ(leadingNumber<double>("-inf"), 0.0);
    EXPECT_EQ(leadingNumber<double>(""), 0.0);
    EXPECT_EQ(leadingNumber<int>("99999999999"), std::numeric_limits<int>::max());
    EXPECT_EQ(leadingNumber<int>("-99999999999"), std::numeric_limits<int>::min());
}

TEST(Numbers, AreTakenOffATextOneAfterTheOther) {
    std::string_view text = "12x";
    EXPECT_EQ(takeNumber<int>(text), 12);
    EXPECT_EQ(takeNumber<int>(text), std::nullopt);
    EXPECT_EQ(text, "x");
}

TEST(Numbers, AreWrittenWithAPoint) {
    EXPECT_EQ(numberText(5.75), "5.75");
    EXPECT_EQ(numberText(3.0), "3");
    EXPECT_EQ(numberText(-12), "-12");
    EXPECT_EQ(fixedText(41.01384, 6), "41.013840");
    EXPECT_EQ(fixedText(-0.5, 0), "-0");
    EXPECT_EQ(fixedText(std::numeric_limits<double>::max(), 6).size(), 316U);
}

}  // namespace
}  // namespace quode
