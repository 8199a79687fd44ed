// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Days of times by the library: the same as inside Quode, whole, and with a reason where a time is missing.
#include <gtest/gtest.h>

#define QUODE_EXPLICIT_VERSION
#include <quode/quode.h>

#include <cmath>

#include "common/civil_date.h"
#include "data/CityDatabase.h"
#include "data/city_day.h"

namespace quode {
namespace {

using namespace std::chrono;
using v1::Absence;
using v1::Day;
using v1::Origin;
using V1Prayer = v1::Prayer;

constexpr year_month_day november{2026y / 11 / 21}, june{2026y / 6 / 21};

Site innerSite(int id, const std::string& method) {
    CityRecord record = CityDatabase(CityDatabase::fileIn(QUODE_BUNDLE), "/usr/share/zoneinfo").city(id).value();
    record.choice.method = conventions::methodOf(method).value();
    return siteOf(record);
}

TEST(LibraryDays, AreThoseOfQuodeToTheLastBit) {
    const v1::Database database;
    for (const char* name : {"London", "Mecca", "Apia", "Tromsø", "Kathmandu", "Sydney", "Kiritimati"}) {
        const std::vector<v1::Place> found = database.search(name, 1);
        if (found.empty()) continue;
        for (const char* method : {"quode", "quode asr=2 adjust=1,0,0,-3,0,2", "mwl", "diyanet", "ummalqura"}) {
            if (!conventions::methodOf(method)) continue;
            const Day day = v1::dayFor(found.front().withMethod(method), november);
            const CityDay inner = computeCityDay(innerSite(found.front().id(), method), recordOf(sys_days(november)));
            for (int code = firstPrayer; code <= lastPrayer; ++code) {
                const v1::PrayerTime& time = day.times[static_cast<std::size_t>(code - firstPrayer)];
                const auto hours = timeOfPrayer(inner, code);
                ASSERT_EQ(time.exists(), hours.has_value()) << name << ' ' << method << ' ' << code;
                if (!time.exists()) continue;
                EXPECT_EQ(time.hours, *hours) << name << ' ' << method << ' ' << code;
                EXPECT_EQ(time.minute->count(), shownMinute(*hours));
                EXPECT_EQ(*time.instant, instantOf(inner, *hours));
                EXPECT_EQ(time.adjusted, inner.method.mark(code).adjusted);
            }
        }
    }
}

TEST(LibraryDays, AgreeWithAPublishedTable) {
    // Diyanet, daily timetable pages, Antalya.
    const std::chrono::minutes published[] = {4h + 36min, 6h + 4min, 13h, 16h + 44min, 19h + 47min, 21h + 9min};
    const Day day = v1::dayFor(36.90812, 30.69556, "Europe/Istanbul", 2022y / 4 / 25, "diyanet");
    for (std::size_t i = 0; i < std::size(published); ++i) {
        EXPECT_LE(std::abs((*day.times[i].minute - published[i]).count()), 1) << day.times[i].key();
    }
}

TEST(LibraryDays, InARowAreThoseOfSingleDays) {
    const v1::Place place = v1::findPlace("Oslo");
    const std::vector<Day> row = v1::daysFor(place, 2026y / 2 / 20, 400);
    ASSERT_EQ(row.size(), 400U);
    for (std::size_t i = 0; i < row.size(); i += 7) {
        const Day single = v1::dayFor(place, sys_days(2026y / 2 / 20) + days(i));
        EXPECT_EQ(row[i].date, single.date);
        EXPECT_EQ(row[i].utcOffset, single.utcOffset);
        for (std::size_t t = 0; t < row[i].times.size(); ++t)
            EXPECT_EQ(row[i].times[t].instant, single.times[t].instant);
    }
    EXPECT_EQ(row[0].utcOffset, 1h);
    EXPECT_EQ(row[60].utcOffset, 2h);  // 21 April
    EXPECT_TRUE(row[60].isSummerTime);
}

TEST(LibraryDays, SayWhyATimeIsMissing) {
    const v1::Place north = v1::placeAt(78.22, 15.65).withMethod("mwl high-latitude=none");
    const v1::PrayerTime& fajr = v1::dayFor(north, june)[V1Prayer::fajr];
    EXPECT_FALSE(fajr.exists());
    EXPECT_FALSE(fajr.instant || fajr.minute);
    EXPECT_TRUE(std::isnan(fajr.hours));
    EXPECT_EQ(fajr.absence, Absence::sunNotLowEnough);
    EXPECT_STREQ(fajr.whyMissing(), "The Sun does not sink low enough for this time.");
    EXPECT_EQ(fajr.clock(), "--:--");
    const v1::PrayerTime& ishraq = v1::dayFor(v1::findPlace("Tromsø"), 2026y / 12 / 21)[V1Prayer::ishraq];
    EXPECT_EQ(ishraq.absence, Absence::sunNotHighEnough);
}

TEST(LibraryDays, SayWhereATimeComesFrom) {
    const Day london = v1::dayFor(v1::findPlace("London"), june);
    EXPECT_EQ(london[V1Prayer::fajr].origin, Origin::earlierDay);
    EXPECT_EQ(london[V1Prayer::dhuhr].origin, Origin::rule);
    EXPECT_EQ(v1::dayFor(v1::findPlace("Tromsø"), june)[V1Prayer::asr].origin, Origin::otherLatitude);
    const Day mwl = v1::dayFor(v1::findPlace("London").withMethod("mwl"), june);
    EXPECT_EQ(mwl[V1Prayer::isha].origin, Origin::highLatitude);
    EXPECT_EQ(mwl[V1Prayer::ishraq].origin, Origin::ownRule);
}

TEST(LibraryDays, TakeCoordinatesZoneDateAndMethodAtOnce) {
    const Day day = v1::dayFor(51.5085, -0.1257, "UTC", june, "mwl");
    EXPECT_EQ(day.utcOffset, 0s);
    const auto noon = *day[V1Prayer::dhuhr].minute;  // the Sun is at its highest near 12:02 UTC
    EXPECT_GE(noon, 12h);
    EXPECT_LE(noon, 12h + 10min);
}

TEST(LibraryDays, OfTheDateLineLieInTheirDay) {
    for (const v1::PrayerTime& time : v1::dayFor(v1::findPlace("Apia"), november).times) {
        EXPECT_GE(time.minute.value(), 0min) << time.key();
        EXPECT_LT(time.minute.value(), 24h) << time.key();
    }
}

TEST(LibraryDays, OutsideTheCalendarAreRefused) {
    const v1::Place place = v1::findPlace("Cairo");
    for (const year_month_day date : {2026y / 2 / 30, 1582y / 10 / 14, year(10000) / 1 / 1, year(-5) / 1 / 1}) {
        EXPECT_THROW(v1::dayFor(place, date), v1::Error);
    }
    EXPECT_NO_THROW(v1::dayFor(place, 1582y / 10 / 15));
    EXPECT_NO_THROW(v1::daysFor(place, 9999y / 12 / 30, 2));
    EXPECT_THROW(v1::daysFor(place, 9999y / 12 / 30, 3), v1::Error);
    EXPECT_TRUE(v1::daysFor(place, november, 0).empty());
}

TEST(LibraryNextPrayer, IsTheNightPrayerOfTheDayBeforeAfterMidnight) {
    const v1::Place london = v1::findPlace("London");
    const Day day = v1::dayFor(london, june);
    const auto isha = *day[V1Prayer::isha].instant;
    ASSERT_GE(*day[V1Prayer::isha].minute, 24h);  // shown as a minute of the next date
    const auto next = v1::nextPrayer(london, isha - 1s);
    ASSERT_TRUE(next);
    EXPECT_EQ(next->prayer, V1Prayer::isha);
    EXPECT_EQ(next->instant, isha);
    EXPECT_EQ(next->date, june);
    EXPECT_EQ(next->clock(), day[V1Prayer::isha].clock());
    EXPECT_NE(v1::nextPrayer(london, isha)->instant, isha);  // strictly after
    EXPECT_EQ(v1::dateAt(london, isha), 2026y / 6 / 22);
}

TEST(LibraryClock, ShowsMinutesOfNeighbouringDays) {
    EXPECT_EQ(v1::clockText(343min), "05:43");
    EXPECT_EQ(v1::clockText(1440min), "00:00");
    EXPECT_EQ(v1::clockText(-1min), "23:59");
    EXPECT_EQ(v1::clockText({}), "--:--");
}

}  // namespace
}  // namespace quode
