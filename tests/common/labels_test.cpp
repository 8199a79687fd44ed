// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/labels.h"

#include <gtest/gtest.h>

namespace quode {
namespace {

TEST(DecimalText, HasTheMarkOfTheLanguage) {
    EXPECT_EQ(decimalText(3.25, 2, "."), "3.25");
    EXPECT_EQ(decimalText(3.25, 2, ","), "3,25");
    EXPECT_EQ(decimalText(3.26, 1, ",", true), "+3,3");
    EXPECT_EQ(decimalText(-3.26, 1, "٫", true), "-3٫3");
    EXPECT_EQ(decimalText(3.25, 0, ","), "3");
}

}  // namespace
}  // namespace quode
