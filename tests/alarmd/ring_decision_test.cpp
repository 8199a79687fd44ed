// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/ring_decision.h"

#include <gtest/gtest.h>

#include "support/zoned_clock.h"

namespace quode::test {
namespace {

RingDecision after(std::chrono::seconds delay) {
    const auto ringAt = utc("2026-10-17 05:15");
    return decideRing(ringAt, ringAt + delay);
}

TEST(RingDecision, WaitsUntilTheMoment) {
    EXPECT_EQ(after(std::chrono::seconds(-1)), RingDecision::wait);
    EXPECT_EQ(after(std::chrono::hours(-24)), RingDecision::wait);
}

TEST(RingDecision, RingsInTheMinuteThatIsShown) {
    EXPECT_EQ(after(std::chrono::seconds(0)), RingDecision::ring);
    EXPECT_EQ(after(std::chrono::seconds(59)), RingDecision::ring);
}

TEST(RingDecision, RingsLateWithinAQuarterOfAnHour) {
    EXPECT_EQ(after(std::chrono::seconds(60)), RingDecision::ringLate);
    EXPECT_EQ(after(std::chrono::minutes(15)), RingDecision::ringLate);
}

TEST(RingDecision, DropsWhatIsOlder) {
    EXPECT_EQ(after(std::chrono::minutes(15) + std::chrono::seconds(1)), RingDecision::drop);
    EXPECT_EQ(after(std::chrono::hours(9000)), RingDecision::drop);
}

}  // namespace
}  // namespace quode::test
