// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/placement.h"

#include <gtest/gtest.h>

namespace quode::host {
namespace {

constexpr QRect screen(0, 0, 1280, 1000);
constexpr QSize panel(340, 400);

TEST(Placement, OpensAboveAPointAtTheBottomAndBelowOneAtTheTop) {
    EXPECT_EQ(popoverFrame(panel, {640, 980}, screen), QRect(470, 572, 340, 400));
    EXPECT_EQ(popoverFrame(panel, {640, 20}, screen), QRect(470, 28, 340, 400));
}

TEST(Placement, StaysInsideTheScreenInEveryCorner) {
    EXPECT_EQ(popoverFrame(panel, {0, 0}, screen), QRect(8, 8, 340, 400));
    EXPECT_EQ(popoverFrame(panel, {1279, 0}, screen), QRect(932, 8, 340, 400));
    EXPECT_EQ(popoverFrame(panel, {0, 999}, screen), QRect(8, 591, 340, 400));
    EXPECT_EQ(popoverFrame(panel, {1279, 999}, screen), QRect(932, 591, 340, 400));
}

TEST(Placement, LeavesThePanelsOfTheDesktopFree) {
    const QRect available(0, 30, 1280, 930);
    for (const QPoint pointer : {QPoint(1270, 5), QPoint(1270, 995), QPoint(-500, 5000)}) {
        EXPECT_TRUE(available.contains(popoverFrame(panel, pointer, available))) << pointer.x();
    }
}

TEST(Placement, TakesASecondScreenToTheLeftForWhatItIs) {
    EXPECT_EQ(popoverFrame(panel, {-1900, 1070}, {-1920, 0, 1920, 1080}), QRect(-1912, 662, 340, 400));
}

TEST(Placement, GrowsWithoutMovingAndOnlyAsFarAsTheScreenGoes) {
    const QRect open(470, 28, 340, 400);
    EXPECT_EQ(grownFrame(open, {340, 680}, screen), QRect(470, 28, 340, 680));
    EXPECT_EQ(grownFrame(open, {340, 2000}, screen), QRect(470, 28, 340, 964));
    EXPECT_EQ(grownFrame({932, 591, 340, 400}, {346, 680}, screen), QRect(926, 591, 346, 401));
    EXPECT_EQ(grownFrame({470, 28, 340, 680}, panel, screen), open);
}

TEST(Placement, IsNeverLargerThanTheScreen) {
    const QRect small(0, 0, 320, 240);
    EXPECT_EQ(popoverFrame(panel, {160, 230}, small), QRect(8, 8, 304, 224));
    EXPECT_EQ(largestWindow(small), QSize(304, 192));
    EXPECT_FALSE(popoverFrame(panel, {0, 0}, {0, 0, 4, 4}).isEmpty());
}

}  // namespace
}  // namespace quode::host
