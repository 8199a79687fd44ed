// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "host/PanelDevice.h"

namespace quode::host {
namespace {

TEST(PanelDevice, IsAsWideAsAPhoneOnEveryDesktop) {
    const PanelDevice device(Idiom::phone, {1920, 1080}, 2.0);
    EXPECT_EQ(device.screenBounds().width, 340.0);
    EXPECT_EQ(device.screenBounds().height, 1080.0);
    EXPECT_EQ(device.screenScale(), 2.0);
    EXPECT_EQ(PanelDevice(Idiom::phone, {320, 480}, 1.0).screenBounds().width, 320.0);
}

TEST(PanelDevice, HasTheWholeScreenOfATablet) {
    const PanelDevice device(Idiom::tablet, {768, 1024}, 1.0);
    EXPECT_EQ(device.idiom(), Idiom::tablet);
    EXPECT_EQ(device.screenBounds().width, 768.0);
}

TEST(PanelDevice, IsATabletWhenItIsLargeAndWorkedByTouchAlone) {
    constexpr auto automatic = PanelLayout::automatic;
    EXPECT_EQ(idiomOf(automatic, {600, 1000}, true), Idiom::tablet);
    EXPECT_EQ(idiomOf(automatic, {1000, 600}, true), Idiom::tablet);
    EXPECT_EQ(idiomOf(automatic, {599, 1000}, true), Idiom::phone);
    EXPECT_EQ(idiomOf(automatic, {1920, 1080}, false), Idiom::phone);
}

TEST(PanelDevice, IsWhatTheUserChoseInstead) {
    EXPECT_EQ(idiomOf(PanelLayout::tablet, {1920, 1080}, false), Idiom::tablet);
    EXPECT_EQ(idiomOf(PanelLayout::phone, {1000, 1000}, true), Idiom::phone);
}

}  // namespace
}  // namespace quode::host
