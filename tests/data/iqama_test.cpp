// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/iqama.h"

#include <gtest/gtest.h>

namespace quode {
namespace {

CityDay dayWithIqamaOfIsha(int prayerMinute, Iqama iqama) {
    CityDay day;
    day.times = {};
    day.times.Ogle = 12.0;
    day.times.IsaEvvel = prayerMinute == -1 ? missingTime : prayerMinute / 60.0;
    day.method.iqama[5] = iqama;
    return day;
}

constexpr int isha = 205, at22_39 = 22 * 60 + 39, at19_10 = 19 * 60 + 10, at20_00 = 20 * 60;

TEST(Iqama, FollowsThePrayerByItsMinutes) {
    EXPECT_EQ(at22_39 + 20, iqamaMinute(dayWithIqamaOfIsha(at22_39, {false, 20}), isha));
    EXPECT_EQ(std::nullopt, iqamaMinute(dayWithIqamaOfIsha(-1, {false, 20}), isha));
}

TEST(Iqama, OfAFixedTimeIsNeverBeforeThePrayer) {
    EXPECT_EQ(at20_00, iqamaMinute(dayWithIqamaOfIsha(at19_10, {true, at20_00}), isha));
    EXPECT_EQ(at20_00, iqamaMinute(dayWithIqamaOfIsha(at20_00, {true, at20_00}), isha));
    EXPECT_EQ(std::nullopt, iqamaMinute(dayWithIqamaOfIsha(at22_39, {true, at20_00}), isha));
}

TEST(Iqama, OfAFixedTimeAfterMidnightFollowsALatePrayer) {
    constexpr int midnight = 24 * 60, at23_50 = midnight - 10, at0_30 = midnight + 30;
    EXPECT_EQ(midnight + 10, iqamaMinute(dayWithIqamaOfIsha(at23_50, {true, 10}), isha));
    EXPECT_EQ(midnight + 45, iqamaMinute(dayWithIqamaOfIsha(at0_30, {true, 45}), isha));
    EXPECT_EQ(std::nullopt, iqamaMinute(dayWithIqamaOfIsha(at0_30, {true, 15}), isha));
}

}  // namespace
}  // namespace quode
