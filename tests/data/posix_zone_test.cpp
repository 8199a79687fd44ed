// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/posix_zone.h"

#include <gtest/gtest.h>

namespace quode {
namespace {

using namespace std::chrono;

TEST(PosixZone, WithoutSummerTime) {
    const auto zone = parsePosixZone("<+0545>-5:45");
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->offset, 5 * 3600 + 45 * 60);
    EXPECT_FALSE(zone->summer);
    EXPECT_EQ(parsePosixZone("GMT0")->offset, 0);
    EXPECT_EQ(parsePosixZone("<-03>3")->offset, -3 * 3600);
    EXPECT_EQ(parsePosixZone("LMT-0:00:30")->offset, 30);
}

TEST(PosixZone, WithSummerTime) {
    const auto zone = parsePosixZone("CET-1CEST,M3.5.0,M10.5.0/3");
    ASSERT_TRUE(zone && zone->summer);
    EXPECT_EQ(zone->offset, 3600);
    EXPECT_EQ(zone->summer->offset, 7200);
    EXPECT_EQ(zone->summer->start, (PosixChange{3, 5, 0, 7200}));
    EXPECT_EQ(zone->summer->end, (PosixChange{10, 5, 0, 10800}));
}

TEST(PosixZone, ReadsTimesBeforeAndLongAfterTheDay) {
    EXPECT_EQ(parsePosixZone("<-02>2<-01>,M3.5.0/-1,M10.5.0/0")->summer->start.seconds, -3600);
    EXPECT_EQ(parsePosixZone("EET-2EEST,M3.4.4/50,M10.4.4/50")->summer->end.seconds, 50 * 3600);
    EXPECT_EQ(parsePosixZone("<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45")->summer->start.seconds,
              2 * 3600 + 45 * 60);
    EXPECT_EQ(parsePosixZone("<+1030>-10:30<+11>-11,M10.1.0,M4.1.0")->summer->offset, 11 * 3600);
}

TEST(PosixZone, RefusesWhatItDoesNotUnderstand) {
    for (const char* text :
         {"", "X", "CE-1", "CET", "CET-", "CET-1CEST", "CET-1CEST,M3.5.0", "CET-1CEST,M13.5.0,M10.5.0",
          "CET-1CEST,M3.6.0,M10.5.0", "CET-1CEST,M3.5.7,M10.5.0", "CET-1CEST,M3.5.0,M10.5.0/3x", "CET-1CEST,J60,J300",
          "<+01-1", "CET-999", "CET-1CEST,M3.5.0/,M10.5.0"}) {
        EXPECT_FALSE(parsePosixZone(text)) << text;
    }
}

TEST(PosixChange, NamesTheRightDay) {
    EXPECT_EQ((PosixChange{3, 5, 0, 0}.namedDay(2026y)), sys_days(2026y / March / 29));
    EXPECT_EQ((PosixChange{3, 2, 0, 0}.namedDay(2027y)), sys_days(2027y / March / 14));
    EXPECT_EQ((PosixChange{9, 1, 6, 0}.namedDay(2030y)), sys_days(2030y / September / 7));
    EXPECT_EQ((PosixChange{2, 5, 6, 0}.namedDay(2028y)), sys_days(2028y / February / 26));
}

TEST(PosixZone, ChangesAtTheSecond) {
    const PosixZone newYork = *parsePosixZone("EST5EDT,M3.2.0,M11.1.0");
    const sys_seconds spring = sys_days(2027y / March / 14) + 7h;  // 02:00 of standard time
    EXPECT_EQ(newYork.offsetAt(spring - 1s), -5 * 3600);
    EXPECT_EQ(newYork.offsetAt(spring), -4 * 3600);
    const sys_seconds autumn = sys_days(2027y / November / 7) + 6h;  // 02:00 of summer time
    EXPECT_EQ(newYork.offsetAt(autumn - 1s), -4 * 3600);
    EXPECT_EQ(newYork.offsetAt(autumn), -5 * 3600);
}

TEST(PosixZone, SouthernAndNegativeSummerTimes) {
    const PosixZone sydney = *parsePosixZone("AEST-10AEDT,M10.1.0,M4.1.0/3");
    EXPECT_EQ(sydney.offsetAt(sys_days(2027y / January / 1)), 11 * 3600);
    EXPECT_EQ(sydney.offsetAt(sys_days(2027y / July / 1)), 10 * 3600);
    const PosixZone dublin = *parsePosixZone("IST-1GMT0,M10.5.0,M3.5.0/1");
    EXPECT_EQ(dublin.offsetAt(sys_days(2027y / January / 1)), 0);
    EXPECT_EQ(dublin.offsetAt(sys_days(2027y / July / 1)), 3600);
}

}  // namespace
}  // namespace quode
