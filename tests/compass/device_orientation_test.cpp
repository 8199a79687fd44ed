// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/device_orientation.h"

#include <gtest/gtest.h>

namespace quode {
namespace {

TEST(DeviceOrientation, OfAPhoneIsCountedFromPortrait) {
    const auto of = [](Qt::ScreenOrientation current) { return deviceOrientation(Qt::PortraitOrientation, current); };
    EXPECT_EQ(of(Qt::PortraitOrientation), DeviceOrientation::portrait);
    EXPECT_EQ(of(Qt::LandscapeOrientation), DeviceOrientation::landscapeLeft);
    EXPECT_EQ(of(Qt::InvertedPortraitOrientation), DeviceOrientation::upsideDown);
    EXPECT_EQ(of(Qt::InvertedLandscapeOrientation), DeviceOrientation::landscapeRight);
}

TEST(DeviceOrientation, OfADesktopScreenIsCountedFromLandscape) {
    const auto of = [](Qt::ScreenOrientation current) { return deviceOrientation(Qt::LandscapeOrientation, current); };
    EXPECT_EQ(of(Qt::LandscapeOrientation), DeviceOrientation::portrait);
    EXPECT_EQ(of(Qt::PortraitOrientation), DeviceOrientation::landscapeRight);  // its top is turned to the right
    EXPECT_EQ(of(Qt::InvertedLandscapeOrientation), DeviceOrientation::upsideDown);
    EXPECT_EQ(of(Qt::InvertedPortraitOrientation), DeviceOrientation::landscapeLeft);
}

TEST(DeviceOrientation, OfAScreenThatDoesNotTellItsOwnIsCountedFromLandscape) {
    const auto of = [](Qt::ScreenOrientation current) { return deviceOrientation(Qt::PrimaryOrientation, current); };
    EXPECT_EQ(of(Qt::PrimaryOrientation), DeviceOrientation::portrait);
    EXPECT_EQ(of(Qt::LandscapeOrientation), DeviceOrientation::portrait);
    EXPECT_EQ(of(Qt::InvertedLandscapeOrientation), DeviceOrientation::upsideDown);
}

}  // namespace
}  // namespace quode
