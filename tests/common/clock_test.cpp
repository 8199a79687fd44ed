// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "common/GlobalFuncs.h"
#include "support/fake_platform.h"
#include "support/vectors.h"

namespace quode {
namespace {

using namespace std::chrono_literals;
using test::FakePlatform;
using test::Vector;
using test::vectorsOf;

class ClockOfTheServices : public testing::Test {
  protected:
    FakePlatform fake;
    GlobalFuncs& services = GlobalFuncs::startUp(fake.platform());
};

TEST_F(ClockOfTheServices, TellsTheTimeOfDay) {
    fake.clock->show(2024, 3, 31, 9, 5, 3);
    int hour = 0;
    int minute = 0;
    int second = 0;
    std::string text;
    services.GetClock(hour, minute, second, &text);
    EXPECT_EQ((std::vector<int>{hour, minute, second}), (std::vector<int>{9, 5, 3}));
    EXPECT_EQ(text, "09:05");
    services.GetClock(hour, minute, second);
    EXPECT_EQ(hour, 9);
}

TEST_F(ClockOfTheServices, MeetsTheReferenceTexts) {
    for (const Vector& v : vectorsOf("calendar", "GetClock::::")) {
        fake.clock->show(2024, 3, 31, int(v.in.at(0)), int(v.in.at(1)), 0);
        services.setIs24Hour(v.in.at(2) != 0.0);
        services.setAmSym(v.inTexts.at(3));
        services.setPmSym(v.inTexts.at(4));
        int hour = 0;
        int minute = 0;
        int second = 0;
        std::string text;
        services.GetClock(hour, minute, second, &text);
        EXPECT_EQ(text, v.outTexts.at(0)) << v.describe();
    }
}

TEST_F(ClockOfTheServices, TellsTheDateInItsOwnZone) {
    fake.clock->present = std::chrono::sys_days(std::chrono::December / 31 / 2023) + 20h;
    int day = 0;
    int month = 0;
    int year = 0;
    services.GetDate(day, month, year);
    EXPECT_EQ((std::vector<int>{day, month, year}), (std::vector<int>{31, 12, 2023}));

    fake.clock->offset = 5h + 45min;
    services.GetDate(day, month, year);
    EXPECT_EQ((std::vector<int>{day, month, year}), (std::vector<int>{1, 1, 2024}));
    EXPECT_EQ(services.GetDateTimeFromNSDate(fake.clock->present), (VAKDate{2024, 1, 1, 1, 45, 0}));
}

TEST_F(ClockOfTheServices, CountsTheFractionOfTheSecondFrom2001) {
    fake.clock->show(2024, 3, 31, 23, 59, 59);
    fake.clock->present += 250ms;
    const VAKDate now = services.GetCurrentDateTime();
    EXPECT_TRUE(sameDay(now, {2024, 3, 31}));
    EXPECT_EQ(now.Seconds, 59);
    EXPECT_NEAR(now.MSeconds, 0.25, 1e-6);
    EXPECT_EQ(services.GetDateTimeFromNSDate(fake.clock->present).MSeconds, 0.0);
}

TEST_F(ClockOfTheServices, GivesLocalJulianDays) {
    fake.clock->show(2024, 3, 31, 12, 0, 0);
    EXPECT_NEAR(services.GetDateTimeJDFromNSDate(fake.clock->present), 2460401.0, 1e-8);
    EXPECT_NEAR(services.GetDateJDFromNSDate(fake.clock->present), 2460400.5, 1e-8);
    fake.clock->offset = 12h;
    EXPECT_NEAR(services.GetDateTimeJDFromNSDate(fake.clock->present), 2460401.5, 1e-8);
    EXPECT_NEAR(services.GetDateJDFromNSDate(fake.clock->present), 2460401.5, 1e-8);
}

TEST(JulianDayOfAMoment, MeetsTheReferenceValues) {
    // Shows any date, even beyond the range of the system's moments.
    class CivilClock : public test::FixedClock {
      public:
        CivilTime shown;
        CivilTime civilTime(TimePoint) const override { return shown; }
    };
    const auto clock = std::make_shared<CivilClock>();
    FakePlatform fake;
    fake.clock = clock;
    const GlobalFuncs& services = GlobalFuncs::startUp(fake.platform());
    const auto shown = [](const Vector& v) {
        return CivilTime{int(v.in[0]), int(v.in[1]), int(v.in[2]), int(v.in[3]), int(v.in[4]), int(v.in[5])};
    };
    for (const Vector& v : vectorsOf("calendar", "GetDateTimeJDFromNSDate")) {
        clock->shown = shown(v);
        EXPECT_DOUBLE_EQ(services.GetDateTimeJDFromNSDate(clock->now()), v.out.at(0)) << v.describe();
    }
    for (const Vector& v : vectorsOf("calendar", "GetDateJDFromNSDate")) {
        clock->shown = shown(v);
        EXPECT_DOUBLE_EQ(services.GetDateJDFromNSDate(clock->now()), v.out.at(0)) << v.describe();
    }
}

TEST_F(ClockOfTheServices, OffersTheCalendarToo) {
    EXPECT_NEAR(services.CalculateJulianDay(2000, 1, 1, 12, 0, 0), 2451545.0, 1e-8);
    EXPECT_NEAR(services.GregorianDateToJulian({2000, 1, 1, 12, 0, 0}), 2451545.0, 1e-8);
    EXPECT_TRUE(sameDay(services.JulianToGregorian(2299159.5), {1582, 10, 4}));
    EXPECT_TRUE(sameDay(services.JulianToHijri(2460497.5), {1446, 1, 1}));
    EXPECT_NEAR(services.HijriDateToJulian({1446, 1, 1}), 2460497.5, 1e-8);
    EXPECT_EQ(services.GetHijriFirstDayOfTheMonthAsJulianDate(0), 2454799.5);
    EXPECT_EQ(services.addMinute(1440, 1.0), 2.0);
    EXPECT_EQ(services.DayOfWeekWithYear(2024, 3, 31), 0);
    EXPECT_EQ(services.DayOfHijriWeekWithYear(1446, 1, 1), 6);  // Saturday, 6 July 2024
    EXPECT_EQ(services.DayOfWeekWithJulianDate(2451545.0), 6);
    EXPECT_EQ(services.frac(-0.25), 0.75);
    int hour = 0;
    int minute = 0;
    int second = 0;
    services.ToHMS(hour, minute, second, 25.5);
    EXPECT_EQ((std::vector<int>{hour, minute, second}), (std::vector<int>{1, 30, 0}));
    EXPECT_EQ(services.GetGMTValueStr(true, -3.5), "(-) 03:30 ☀");
    EXPECT_EQ(services.getDegMinStrWithMinusPlus(10.9999), "+10°59'");
    EXPECT_EQ(services.getQiblaAngleStr(90.0), "270°00'");
    EXPECT_EQ(services.getFloatStr("41;30;36"), "41.510000");
}

}  // namespace
}  // namespace quode
