// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/zone_encoding.h"

#include <gtest/gtest.h>

namespace quode::places {
namespace {

constexpr Years years{2027, 2036};

ZoneRule ruleOf(const char* posix) {
    return encoded(*parsePosixZone(posix), years);
}

TEST(ZoneEncoding, WithoutSummerTimeTheRuleIsAllZeros) {
    EXPECT_EQ(ruleOf("<+03>-3"), (ZoneRule{3.0, false, 0, 0, 0, 0, 0}));
    EXPECT_EQ(ruleOf("<+0545>-5:45"), (ZoneRule{5.75, false, 0, 0, 0, 0, 0}));
    EXPECT_EQ(ruleOf("<-0330>3:30"), (ZoneRule{-3.5, false, 0, 0, 0, 0, 0}));
}

TEST(ZoneEncoding, AWeekdayRuleIsTakenOver) {
    EXPECT_EQ(ruleOf("CET-1CEST,M3.5.0,M10.5.0/3"), (ZoneRule{1.0, true, 2, 35, 9, 35, 1}));
    EXPECT_EQ(ruleOf("EST5EDT,M3.2.0,M11.1.0"), (ZoneRule{-5.0, true, 2, 32, 10, 31, 1}));
    EXPECT_EQ(ruleOf("AEST-10AEDT,M10.1.0,M4.1.0/3"), (ZoneRule{10.0, true, 9, 31, 3, 31, 1}));
}

TEST(ZoneEncoding, AChangeLateOnItsDayBelongsToThatDay) {
    EXPECT_EQ(ruleOf("<-06>6<-05>,M9.1.6/22,M4.1.6/22"), (ZoneRule{-6.0, true, 8, 61, 3, 61, 1}));
}

TEST(ZoneEncoding, ASummerTimeThatIsWinterIsTurnedRound) {
    EXPECT_EQ(ruleOf("IST-1GMT0,M10.5.0,M3.5.0/1"), (ZoneRule{0.0, true, 2, 35, 9, 35, 1}));
}

TEST(ZoneEncoding, AChangeOnAnotherDayIsFittedToTheYears) {
    // the day after the last Thursday of October: the last Friday in all years but 2030
    EXPECT_EQ(ruleOf("EET-2EEST,M4.5.5/0,M10.5.4/24"), (ZoneRule{2.0, true, 3, 60, 9, 60, 1}));
    // the day after the fourth Thursday of March: the fourth Friday in all years but 2030
    EXPECT_EQ(ruleOf("IST-2IDT,M3.4.4/26,M10.5.0"), (ZoneRule{2.0, true, 2, 59, 9, 35, 1}));
    // two days after the fourth Thursday: the last Saturday in all years but 2029 and 2035 (March), in all (October)
    EXPECT_EQ(ruleOf("EET-2EEST,M3.4.4/50,M10.4.4/50"), (ZoneRule{2.0, true, 2, 65, 9, 65, 1}));
    // the day after the first Saturday: the first Sunday in all years but 2030 (September), 2029 and 2035 (April)
    EXPECT_EQ(ruleOf("<-04>4<-03>,M9.1.6/24,M4.1.6/24"), (ZoneRule{-4.0, true, 8, 31, 3, 31, 1}));
    // an hour before the last Sunday of March
    EXPECT_EQ(ruleOf("<-02>2<-01>,M3.5.0/-1,M10.5.0/0"), (ZoneRule{-2.0, true, 2, 35, 9, 35, 1}));
}

TEST(ZoneEncoding, APartOfAnHourOfSummerTimeIsRefused) {
    EXPECT_THROW(ruleOf("<+1030>-10:30<+11>-11,M10.1.0,M4.1.0"), std::runtime_error);
}

}  // namespace
}  // namespace quode::places
