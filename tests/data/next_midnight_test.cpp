// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/next_midnight.h"

#include <gtest/gtest.h>

#include "support/zoned_clock.h"

namespace quode::test {
namespace {

TEST(NextMidnight, IsTheFirstMomentWithAnotherDate) {
    const ZonedClock berlin("CET-1CEST,M3.5.0,M10.5.0/3", "Europe/Berlin");
    EXPECT_EQ(nextMidnight(berlin, utc("2026-11-21 22:59:59")), utc("2026-11-21 23:00"));
    EXPECT_EQ(nextMidnight(berlin, utc("2026-11-21 23:00")), utc("2026-11-22 23:00"));
    EXPECT_EQ(nextMidnight(berlin, utc("2026-03-28 23:00")), utc("2026-03-29 22:00")) << "a day of 23 hours";
    EXPECT_EQ(nextMidnight(berlin, utc("2026-10-24 22:00")), utc("2026-10-25 23:00")) << "a day of 25 hours";
}

TEST(NextMidnight, IsAtOneWhereTheClocksSkipMidnight) {
    const ZonedClock saoPaulo("<-03>3<-02>,M10.3.0/0,M2.3.0/0", "America/Sao_Paulo");
    EXPECT_EQ(nextMidnight(saoPaulo, utc("2026-10-17 15:00")), utc("2026-10-18 03:00"));
    // In February 24:00 becomes 23:00 of the same day.
    EXPECT_EQ(nextMidnight(saoPaulo, utc("2026-02-14 15:00")), utc("2026-02-15 03:00"));
}

TEST(NextMidnight, IsThatOfTheClockOfAPlace) {
    const ZoneClock kathmandu = ZoneRule{5.75};
    EXPECT_EQ(nextMidnight(kathmandu, utc("2026-11-21 18:14:59")), utc("2026-11-21 18:15"));
    EXPECT_EQ(nextMidnight(kathmandu, utc("2026-11-21 18:15")), utc("2026-11-22 18:15"));
}

}  // namespace
}  // namespace quode::test
