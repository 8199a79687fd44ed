// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/HomeClock.h"

#include <gtest/gtest.h>

#include "support/zoned_clock.h"

namespace quode {
namespace {

TEST(HomeClock, TellsWhatTheDeviceDoesWithoutACity) {
    const auto device = std::make_shared<test::ZonedClock>("<+0545>-5:45", "Asia/Kathmandu");
    device->present = test::utc("2026-11-21 20:00");
    const HomeClock clock(device);
    EXPECT_EQ(clock.now(), device->now());
    EXPECT_EQ(clock.civilTime(clock.now()), (CivilTime{2026, 11, 22, 1, 45, 0}));
}

TEST(HomeClock, TellsDateAndTimeOfItsCity) {
    const auto device = std::make_shared<test::ZonedClock>("<+0545>-5:45", "Asia/Kathmandu");
    device->present = test::utc("2026-11-21 20:00");
    HomeClock clock(device);
    clock.follow(ZoneRule{-10.0});
    EXPECT_EQ(clock.civilTime(clock.now()), (CivilTime{2026, 11, 21, 10, 0, 0}));
    EXPECT_EQ(clock.utcOffset(clock.now()), std::chrono::hours(-10));
    EXPECT_EQ(clock.zoneName(), "Asia/Kathmandu");
    clock.follow(std::nullopt);
    EXPECT_EQ(clock.civilTime(clock.now()).day, 22);
}

}  // namespace
}  // namespace quode
