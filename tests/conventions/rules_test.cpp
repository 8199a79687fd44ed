// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Rules that are not angles, each compared with its definition.
#include <gtest/gtest.h>

#include <cmath>

#include "conventions/UmmAlQura.h"
#include "conventions/times.h"

namespace quode::conventions {
namespace {

Request at(double latitude, double longitude, double offset, int year, int month, int day) {
    return {latitude, longitude, 0.0, false, year, month, day, offset};
}

double minutes(const ConventionDay& day, Prayer prayer) {
    return day.time(prayer).hours * 60.0;
}

Method method(const char* text) {
    return methodOf(text).value();
}

TEST(UmmAlQura, prolongsIshaInRamadan) {
    // Ramadan 1447 began on 18 February 2026.
    const ConventionDay before = computeDay(method("umm-al-qura"), at(21.42, 39.83, 3, 2026, 2, 17));
    const ConventionDay first = computeDay(method("umm-al-qura"), at(21.42, 39.83, 3, 2026, 2, 18));
    EXPECT_FALSE(before.isRamadan);
    EXPECT_TRUE(first.isRamadan);
    EXPECT_NEAR(minutes(before, Prayer::isha) - minutes(before, Prayer::maghrib), 90.0, 1e-6);
    EXPECT_NEAR(minutes(first, Prayer::isha) - minutes(first, Prayer::maghrib), 120.0, 1e-6);
}

TEST(UmmAlQura, hasItsFormerAngleBefore1430) {
    const auto fajr = [](const char* text, int year, int month, int day) {
        return computeDay(method(text), at(21.42, 39.83, 3, year, month, day)).time(Prayer::fajr);
    };
    // 1430 began on 29 December 2008. Half a degree is some two minutes.
    const ConventionTime last = fajr("umm-al-qura", 2008, 12, 28), first = fajr("umm-al-qura", 2008, 12, 29);
    EXPECT_EQ(last.hours, fajr("umm-al-qura fajr-angle=19", 2008, 12, 28).hours);
    EXPECT_EQ(last.caution, Caution::formerAngle);
    EXPECT_EQ(first.hours, fajr("umm-al-qura fajr-angle=18.5", 2008, 12, 29).hours);
    EXPECT_EQ(first.caution, Caution::none);
    EXPECT_EQ(fajr("umm-al-qura fajr-angle=18.5", 2008, 12, 28).caution, Caution::none);
    EXPECT_LT(last.exact + 0.02, fajr("umm-al-qura fajr-angle=18.5", 2008, 12, 28).exact);
    EXPECT_EQ(fajr("umm-al-qura", 1850, 1, 1).caution, Caution::formerAngle);
    EXPECT_EQ(fajr("umm-al-qura", 2200, 1, 1).caution, Caution::none);
}

TEST(UmmAlQura, saysWhereNoCalendarTellsOfRamadan) {
    const auto isha = [](int year) {
        return computeDay(method("umm-al-qura"), at(21.42, 39.83, 3, year, 1, 1)).time(Prayer::isha);
    };
    EXPECT_EQ(isha(2026).caution, Caution::none);
    EXPECT_EQ(isha(2200).caution, Caution::unknownRamadan);
    EXPECT_EQ(isha(1850).caution, Caution::unknownRamadan);
}

TEST(UmmAlQura, countsTheDaysOfPublishedYears) {
    const auto firstOf1447 = ummAlQuraDay(20265);  // 26 June 2025
    ASSERT_TRUE(firstOf1447);
    EXPECT_EQ(firstOf1447->year, 1447);
    EXPECT_EQ(firstOf1447->month, 1);
    EXPECT_EQ(firstOf1447->day, 1);
    EXPECT_FALSE(ummAlQuraDay(-40000));
    EXPECT_FALSE(ummAlQuraDay(80000));
}

TEST(Interval, isCountedFromMaghribWithoutTheUsersMinutes) {
    const ConventionDay plain = computeDay(method("qatar"), at(25.29, 51.53, 3, 2026, 4, 1));
    const ConventionDay moved = computeDay(method("qatar adjust=0,0,0,0,5,0"), at(25.29, 51.53, 3, 2026, 4, 1));
    EXPECT_NEAR(minutes(moved, Prayer::maghrib) - minutes(plain, Prayer::maghrib), 5.0, 1e-6);
    EXPECT_NEAR(minutes(moved, Prayer::isha), minutes(plain, Prayer::isha), 1e-6);
}

TEST(Dip, makesTheDayLonger) {
    Request low = at(34.4, 8.8, 1, 2026, 4, 1), high = low;
    high.height = 900.0;
    const ConventionDay below = computeDay(method("tunisia"), low), above = computeDay(method("tunisia"), high);
    // 0.0321 * sqrt(900) = 0.96 degrees, at least 3.9 minutes.
    EXPECT_GE(minutes(below, Prayer::sunrise) - minutes(above, Prayer::sunrise), 4.0);
    EXPECT_GE(minutes(above, Prayer::isha) - minutes(below, Prayer::isha), 4.0);
    EXPECT_EQ(minutes(above, Prayer::dhuhr), minutes(below, Prayer::dhuhr));
}

TEST(NightFromSunset, beginsBeforeAMaghribByAnAngle) {
    for (const char* key : {"tehran", "jafari"}) {
        const Request tehran = at(35.69, 51.42, 3.5, 2026, 3, 21);
        const ConventionDay day = computeDay(method(key), tehran);
        ASSERT_TRUE(day.nightBegin) << key;
        // Without minutes of its own mwl has Maghrib at sunset, rounded.
        EXPECT_NEAR(*day.nightBegin * 60.0, minutes(computeDay(method("mwl"), tehran), Prayer::maghrib), 0.501);
        EXPECT_GT(day.time(Prayer::maghrib).hours - *day.nightBegin, 0.2) << key;
    }
    EXPECT_FALSE(computeDay(method("mwl"), at(35.69, 51.42, 3.5, 2026, 3, 21)).nightBegin);
}

TEST(HeightSteps, needTheUsersHeight) {
    Request request = at(-6.9, 107.6, 7, 2026, 4, 1);
    request.height = 768.0;
    const ConventionDay database = computeDay(method("kemenag"), request);
    request.heightIsOfUser = true;
    const ConventionDay user = computeDay(method("kemenag"), request);
    EXPECT_NEAR(minutes(database, Prayer::sunrise) - minutes(user, Prayer::sunrise), 2.0, 1e-6);
    EXPECT_NEAR(minutes(user, Prayer::maghrib) - minutes(database, Prayer::maghrib), 2.0, 1e-6);
}

TEST(JakimZones, belongToTowns) {
    const Convention& jakim = *findConvention("jakim");
    EXPECT_EQ(usedPoint(jakim, 3.141, 101.687).name, "WLY01");  // Kuala Lumpur
    EXPECT_EQ(usedPoint(jakim, 6.124, 102.243).name, "KTN01");  // Kota Bharu
    EXPECT_EQ(usedPoint(jakim, 5.414, 100.329).name, "PNG01");  // George Town
    EXPECT_TRUE(usedPoint(jakim, 5.414, 100.329).isCertain);
    EXPECT_FALSE(usedPoint(jakim, 51.5, -0.1).isCertain);
    EXPECT_EQ(usedPoint(jakim, 51.5, -0.1).latitude, 51.5);
    EXPECT_EQ(usedPoint(jakim, 3.141, 101.687, "SGR03").name, "SGR03");
    EXPECT_FALSE(usedPoint(jakim, 4.47, 101.377).isCertain);  // a mountain zone
    // Singapore is near Johor's seats only.
    EXPECT_EQ(usedPoint(jakim, 1.29, 103.85, "", "SG").name, usedPoint(jakim, 1.29, 103.85).name);
    EXPECT_FALSE(usedPoint(jakim, 1.29, 103.85, "", "SG").isCertain);
    EXPECT_TRUE(usedPoint(jakim, 5.414, 100.329, "", "MY").isCertain);
    EXPECT_TRUE(usedPoint(jakim, 1.29, 103.85, "JHR02", "SG").isCertain);
    // Kampong Sungai Kechil Ulu is 5.9 km from the seat of one zone and 6.0 km from that of another.
    EXPECT_FALSE(usedPoint(jakim, 5.10962, 100.5438).isCertain);
}

TEST(JakimZones, ofKelantanHaveIshaAtSeventeenDegrees) {
    const Request kotaBharu = at(6.124, 102.243, 8, 2026, 4, 1);
    const ConventionDay zone = computeDay(method("jakim"), kotaBharu);
    const ConventionDay eighteen = computeDay(method("jakim isha-angle=18"), kotaBharu);
    EXPECT_NEAR(minutes(eighteen, Prayer::isha) - minutes(zone, Prayer::isha), 4.0, 1.01);
}

TEST(HighLatitude, rulesBoundTheTwilightOfAMidsummerNight) {
    const Request glasgow = at(55.86, -4.25, 1, 2026, 6, 21);
    const ConventionDay none = computeDay(method("mwl high-latitude=none"), glasgow);
    EXPECT_FALSE(none.time(Prayer::fajr).exists());
    EXPECT_FALSE(none.time(Prayer::isha).exists());
    const double sunrise = minutes(none, Prayer::sunrise), maghrib = minutes(none, Prayer::maghrib);
    const double night = 1440.0 + sunrise - maghrib;  // to a minute
    const auto fajr = [&](const char* text) { return minutes(computeDay(method(text), glasgow), Prayer::fajr); };
    const auto isha = [&](const char* text) { return minutes(computeDay(method(text), glasgow), Prayer::isha); };
    EXPECT_NEAR(fajr("mwl high-latitude=middle-of-night"), sunrise - night / 2, 1.5);
    EXPECT_NEAR(isha("mwl high-latitude=middle-of-night"), maghrib + night / 2, 1.5);
    EXPECT_NEAR(fajr("mwl high-latitude=one-seventh"), sunrise - night / 7, 1.5);
    EXPECT_NEAR(isha("mwl high-latitude=one-seventh"), maghrib + night / 7, 1.5);
    EXPECT_NEAR(fajr("mwl high-latitude=angle-based"), sunrise - night * 18 / 60, 1.5);
    EXPECT_NEAR(isha("mwl high-latitude=angle-based"), maghrib + night * 17 / 60, 1.5);
    EXPECT_EQ(computeDay(method("mwl high-latitude=one-seventh"), glasgow).time(Prayer::isha).origin,
              Origin::highLatitude);
}

TEST(HighLatitude, nearestLatitudeTakesTheIntervalOrTheClockOf48Degrees) {
    const Request glasgow = at(55.86, -4.25, 1, 2026, 6, 21), there = at(48.5, -4.25, 1, 2026, 6, 21);
    const ConventionDay model = computeDay(method("isna"), there);
    const ConventionDay local = computeDay(method("isna high-latitude=nearest-latitude"), glasgow);
    const ConventionDay clock = computeDay(method("isna high-latitude=nearest-latitude-clock"), glasgow);
    const double interval = minutes(model, Prayer::sunrise) - minutes(model, Prayer::fajr);
    EXPECT_NEAR(minutes(local, Prayer::sunrise) - minutes(local, Prayer::fajr), interval, 1.01);
    EXPECT_NEAR(minutes(clock, Prayer::fajr), minutes(model, Prayer::fajr), 1.01);
}

TEST(HighLatitude, nearestDayTakesTheIntervalToNoon) {
    const ConventionDay day = computeDay(method("isna high-latitude=nearest-day"), at(58.0, 15.0, 2, 2026, 6, 21));
    ASSERT_TRUE(day.time(Prayer::fajr).exists());
    EXPECT_EQ(day.time(Prayer::fajr).origin, Origin::highLatitude);
    // On the nearest date the Sun just reaches the angle, at midnight.
    EXPECT_NEAR(day.time(Prayer::dhuhr).hours - day.time(Prayer::fajr).hours, 11.8, 0.5);
}

TEST(HighLatitude, changesNothingWhereTheAngleIsReached) {
    const Request istanbul = at(41.0, 29.0, 3, 2026, 6, 21);
    const ConventionDay plain = computeDay(method("mwl high-latitude=none"), istanbul);
    for (const char* text :
         {"mwl high-latitude=middle-of-night", "mwl high-latitude=nearest-latitude", "mwl high-latitude=nearest-day"}) {
        EXPECT_EQ(minutes(computeDay(method(text), istanbul), Prayer::fajr), minutes(plain, Prayer::fajr)) << text;
    }
}

TEST(AddedMinutes, thatAreLongerThanTheDayAreMarked) {
    // At noon the Sun is just above the horizon: Asr follows at once, and Dhuhr has five minutes added.
    const ConventionDay winter = computeDay(method("morocco"), at(66.5, 25.7, 2, 2026, 12, 21));
    ASSERT_GT(winter.time(Prayer::dhuhr).hours, winter.time(Prayer::asr).hours);
    EXPECT_EQ(winter.time(Prayer::asr).caution, Caution::outOfOrder);
    EXPECT_EQ(winter.asrStandard.caution, Caution::outOfOrder);
    EXPECT_EQ(winter.time(Prayer::dhuhr).caution, Caution::none);
    const ConventionDay summer = computeDay(method("morocco"), at(60.2, 25.7, 3, 2026, 5, 1));
    for (const ConventionTime& time : summer.times) EXPECT_EQ(time.caution, Caution::none);
}

TEST(PolarDay, takesALowerLatitudeAndSaysSo) {
    const ConventionDay tromso = computeDay(method("mwl"), at(69.65, 18.96, 2, 2026, 6, 21));
    EXPECT_TRUE(tromso.isOtherLatitude);
    EXPECT_LT(tromso.usedLatitude, 66.6);
    EXPECT_GT(tromso.usedLatitude, 64.5);
    EXPECT_EQ(tromso.time(Prayer::sunrise).origin, Origin::otherLatitude);
    const ConventionDay winter = computeDay(method("mwl"), at(69.65, 18.96, 1, 2026, 12, 21));
    EXPECT_TRUE(winter.isOtherLatitude);
    EXPECT_TRUE(winter.time(Prayer::asr).exists());
}

}  // namespace
}  // namespace quode::conventions
