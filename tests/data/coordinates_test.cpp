// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/coordinates.h"

#include <gtest/gtest.h>

#include "common/formatting.h"

namespace quode {
namespace {

TEST(SexagesimalCoordinate, IsDegreesMinutesSeconds) {
    EXPECT_EQ(sexagesimalCoordinate(0), "0;0;0");
    EXPECT_EQ(sexagesimalCoordinate(4151000), "41;30;36");
    EXPECT_EQ(sexagesimalCoordinate(4250779), "42;30;28.044");
    EXPECT_EQ(sexagesimalCoordinate(-50000), "-0;30;0");
    EXPECT_EQ(sexagesimalCoordinate(-1), "-0;0;0.036");
    EXPECT_EQ(sexagesimalCoordinate(18000000), "180;0;0");
}

TEST(SexagesimalCoordinate, ComesBackAsTheDecimalDegreesToTheLastDigit) {
    for (long value = -18000000; value <= 18000000; value += 1237) {
        const std::string back = formatting::getFloatStr(decipheredCoordinate(sexagesimalCoordinate(value)));
        ASSERT_EQ(std::stod(back), static_cast<double>(value * 10) / 1e6) << sexagesimalCoordinate(value);
    }
}

TEST(DecipheredCoordinate, IsTheTextItself) {
    EXPECT_EQ(decipheredCoordinate("-0;30;0.5"), "-0;30;0.5");
}

}  // namespace
}  // namespace quode
