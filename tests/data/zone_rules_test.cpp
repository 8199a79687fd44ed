// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/zone_clock.h"

#include <gtest/gtest.h>

namespace quode {
namespace {

using namespace std::chrono;

constexpr ZoneRule berlinRule{1.0, true, 2, weekdayRule(0, 4), 9, weekdayRule(0, 4), 1};
constexpr ZoneRule auckland{12.0, true, 8, weekdayRule(0, 4), 3, weekdayRule(0, 0), 1};
constexpr ZoneRule istanbulRule{3.0, false, 0, 0, 0, 0, 0};

TEST(ZoneRule, LastSundayIsRuleDay35) {
    static_assert(weekdayRule(0, 4) == 35);
    static_assert(weekdayRule(0, 0) == 31);
    static_assert(weekdayRule(6, 4) == 65);
}

TEST(ZoneRule, StartDayIsSummerTimeAndStopDayIsNot) {
    EXPECT_FALSE(isSummerTime(berlinRule, 2026y / March / 28));
    EXPECT_TRUE(isSummerTime(berlinRule, 2026y / March / 29));
    EXPECT_TRUE(isSummerTime(berlinRule, 2026y / October / 24));
    EXPECT_FALSE(isSummerTime(berlinRule, 2026y / October / 25));
    EXPECT_DOUBLE_EQ(offsetOn(berlinRule, 2026y / July / 1), 2.0);
    EXPECT_DOUBLE_EQ(offsetOn(berlinRule, 2026y / January / 1), 1.0);
}

TEST(ZoneRule, SouthernSummerCrossesTheNewYear) {
    EXPECT_TRUE(isSummerTime(auckland, 2026y / December / 31));
    EXPECT_TRUE(isSummerTime(auckland, 2027y / January / 1));
    EXPECT_TRUE(isSummerTime(auckland, 2027y / April / 3));
    EXPECT_FALSE(isSummerTime(auckland, 2027y / April / 4));
    EXPECT_FALSE(isSummerTime(auckland, 2027y / September / 25));
    EXPECT_TRUE(isSummerTime(auckland, 2027y / September / 26));
}

TEST(ZoneRule, WithoutSummerTimeNothingChanges) {
    EXPECT_FALSE(isSummerTime(istanbulRule, 2026y / July / 1));
    EXPECT_EQ(nextClockChange(istanbulRule, 2026y / July / 1), std::nullopt);
}

TEST(ZoneRule, ImpossibleDatesAreNotSummerTime) {
    EXPECT_FALSE(isSummerTime(berlinRule, 2026y / June / 31));
    EXPECT_EQ(nextClockChange(berlinRule, 2026y / June / 31), std::nullopt);
}

TEST(ZoneRule, NamesTheNextChangeAndItsDirection) {
    const auto autumn = nextClockChange(berlinRule, 2026y / July / 1);
    ASSERT_TRUE(autumn);
    EXPECT_EQ(autumn->date, 2026y / October / 25);
    EXPECT_FALSE(autumn->toSummerTime);
    const auto spring = nextClockChange(berlinRule, 2026y / October / 25);
    ASSERT_TRUE(spring);
    EXPECT_EQ(spring->date, 2027y / March / 28);
    EXPECT_TRUE(spring->toSummerTime);
    const auto dayBefore = nextClockChange(berlinRule, 2027y / March / 27);
    ASSERT_TRUE(dayBefore);
    EXPECT_EQ(dayBefore->date, 2027y / March / 28);
    const auto south = nextClockChange(auckland, 2026y / November / 21);
    ASSERT_TRUE(south);
    EXPECT_EQ(south->date, 2027y / April / 4);
    EXPECT_FALSE(south->toSummerTime);
}

TEST(ZoneRule, ValidityKeepsToWhatTheEngineUnderstands) {
    EXPECT_TRUE(isValid(berlinRule));
    EXPECT_TRUE(isValid(istanbulRule));
    for (const ZoneRule& broken : {ZoneRule{15.0, false, 0, 0, 0, 0, 0}, ZoneRule{1.0, true, 12, 35, 9, 35, 1},
                                   ZoneRule{1.0, true, 2, 66, 9, 35, 1}, ZoneRule{1.0, true, 2, 35, -1, 35, 1},
                                   ZoneRule{1.0, true, 2, 35, 9, -1, 1}, ZoneRule{1.0, true, 2, 35, 9, 35, 5}}) {
        EXPECT_FALSE(isValid(broken));
    }
}

}  // namespace
}  // namespace quode
