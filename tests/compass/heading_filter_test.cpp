// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/qt/HeadingFilter.h"

#include <gtest/gtest.h>

namespace quode {
namespace {

HeadingReading at(double degrees) {
    return {degrees, std::nullopt};
}

TEST(HeadingFilter, PassesTheFirstReadingAndThoseADegreeAway) {
    HeadingFilter filter(1.0);
    EXPECT_TRUE(filter.passes(at(10.0)));
    EXPECT_FALSE(filter.passes(at(10.9)));
    EXPECT_TRUE(filter.passes(at(11.0)));
    EXPECT_FALSE(filter.passes(at(10.25)));
    EXPECT_TRUE(filter.passes(at(9.5)));
}

TEST(HeadingFilter, AddsUpSmallChangesInOneDirection) {
    HeadingFilter filter(1.0);
    int passed = 0;
    for (int i = 0; i <= 40; ++i) passed += filter.passes(at(100.0 + 0.25 * i)) ? 1 : 0;
    EXPECT_EQ(passed, 11);  // at 100, 101, ... 110
}

TEST(HeadingFilter, MeasuresTheShorterWayAcrossNorth) {
    HeadingFilter filter(1.0);
    EXPECT_TRUE(filter.passes(at(359.9)));
    EXPECT_FALSE(filter.passes(at(0.1)));
    EXPECT_TRUE(filter.passes(at(1.0)));
    EXPECT_FALSE(filter.passes(at(0.1)));
    EXPECT_TRUE(filter.passes(at(359.75)));
}

TEST(HeadingFilter, PassesFailedReadingsAndTheOneThatFollows) {
    HeadingFilter filter(1.0);
    EXPECT_TRUE(filter.passes(at(-1.0)));
    EXPECT_TRUE(filter.passes(at(-1.0)));
    EXPECT_TRUE(filter.passes(at(50.0)));
    EXPECT_TRUE(filter.passes(at(-1.0)));
    EXPECT_TRUE(filter.passes(at(50.0)));
}

TEST(HeadingFilter, StartsAgainAfterReset) {
    HeadingFilter filter(1.0);
    EXPECT_TRUE(filter.passes(at(50.0)));
    filter.reset();
    EXPECT_TRUE(filter.passes(at(50.0)));
}

}  // namespace
}  // namespace quode
