// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/city_day.h"

#include <gtest/gtest.h>

#include "support/tolerances.h"
#include "support/vectors.h"

namespace quode {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year_month_day;

constexpr ZoneRule centralEurope{1.0, true, 2, weekdayRule(0, 4), 9, weekdayRule(0, 4), 1};
constexpr ZoneRule sydneyZone{10.0, true, 9, weekdayRule(0, 0), 3, weekdayRule(0, 0), 1};
const Site istanbul{41.01384, 28.94966, {3.0}, true};
const Site berlin{52.52437, 13.41053, centralEurope, true};
const Site tromso{69.6489, 18.95508, centralEurope, true};

sys_seconds utc(int year, unsigned month, unsigned day, std::chrono::seconds time) {
    return sys_days(year_month_day(std::chrono::year(year), std::chrono::month(month), std::chrono::day(day))) + time;
}

TEST(CityDay, HoldsWhatTheEngineComputes) {
    for (const test::Vector& v : test::vectorsOf("prayer", "CalculatePrayTimes")) {
        const auto n = [&](std::size_t i) { return static_cast<int>(v.in[i]); };
        const ZoneRule rule{v.in[2], n(3) == 1, n(4), n(5), n(6), n(7), n(8)};
        const CityDay day =
            computeCityDay({v.in[0], v.in[1], rule, n(9) == 1}, VAKDateMake(n(12), n(11), n(10), 17, 3, 5));
        for (int slot = 0; slot < 13; ++slot) {
            EXPECT_NEAR(v.members.at("times")[static_cast<std::size_t>(slot)], day.times.slot(slot), test::clockHours)
                << v.describe();
        }
        EXPECT_EQ(v.members.at("GMTValue")[0], day.GMTValue);
        EXPECT_NEAR(v.members.at("Kible")[1], day.kible.K, 1e-7);
    }
}

TEST(ShownMinute, RoundsAsTheTableDoes) {
    EXPECT_EQ(12 * 60 + 31, shownMinute(12.50875));            // 12:30:31.5
    EXPECT_EQ(12 * 60 + 30, shownMinute(12.508611111111111));  // 12:30:31 becomes 30 seconds in single precision
    EXPECT_EQ(0, shownMinute(0.0));
    EXPECT_EQ(24 * 60, shownMinute(23.9999));                  // shown as 00:00, of the next day
    EXPECT_EQ(24 * 60 + 47, shownMinute(24.0 + 47.2 / 60.0));  // a night prayer after midnight
}

TEST(TimeOfPrayer, IsCountedFromTheDayItselfWhereTheClockIsADayAheadOfTheLongitude) {
    const Site apia{-13.83333, -171.76667, {13.0}, true};
    const Site kiritimati{2.01643, -157.48773, {14.0}, true};
    for (const Site& site : {apia, kiritimati}) {
        const CityDay day = computeCityDay(site, VAKDateMake(21, 11, 2026, 0, 0, 0));
        EXPECT_GT(day.times.Ogle, 24.0);  // as the engine returns it
        double before = 0.0;
        for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
            const auto hours = timeOfPrayer(day, code);
            ASSERT_TRUE(hours) << code;
            EXPECT_GT(*hours, before) << code;
            EXPECT_LT(*hours, 24.0) << code;
            before = *hours;
        }
        const auto noon = instantOf(day, timeOfPrayer(day, 202).value());
        EXPECT_EQ(21, wallClock(site.rule, noon).Days);
        EXPECT_EQ(12, wallClock(site.rule, noon).Hours);
        const auto next = nextPrayer(site, noon - 1s);
        ASSERT_TRUE(next);
        EXPECT_EQ(202, next->code);
        EXPECT_EQ(21, next->date.Days);
    }
}

TEST(TimeOfPrayer, IsTheEnginesWhereClockAndLongitudeAgree) {
    for (const Site& site : {istanbul, berlin, tromso}) {
        const CityDay day = computeCityDay(site, VAKDateMake(21, 6, 2026, 0, 0, 0));
        for (int code = firstPrayer; code <= lastPrayer; ++code) {
            EXPECT_EQ(timeOfPrayer(day.times, code), timeOfPrayer(day, code)) << code;
        }
    }
}

TEST(WallClock, ChangesInTheNightsThatTheRuleNames) {
    EXPECT_EQ(VAKDateMake(29, 3, 2026, 0, 0, 0), wallClock(centralEurope, utc(2026, 3, 28, 23h)));
    EXPECT_EQ(VAKDateMake(29, 3, 2026, 1, 59, 59), wallClock(centralEurope, utc(2026, 3, 29, 59min + 59s)));
    EXPECT_EQ(VAKDateMake(29, 3, 2026, 3, 0, 0), wallClock(centralEurope, utc(2026, 3, 29, 1h)));
    EXPECT_EQ(VAKDateMake(25, 10, 2026, 2, 59, 59), wallClock(centralEurope, utc(2026, 10, 25, 59min + 59s)));
    EXPECT_EQ(VAKDateMake(25, 10, 2026, 2, 0, 0), wallClock(centralEurope, utc(2026, 10, 25, 1h)));
    EXPECT_EQ(VAKDateMake(1, 7, 2026, 14, 0, 0), wallClock(centralEurope, utc(2026, 7, 1, 12h)));
    EXPECT_EQ(VAKDateMake(1, 12, 2026, 13, 0, 0), wallClock(centralEurope, utc(2026, 12, 1, 12h)));
    EXPECT_EQ(VAKDateMake(1, 1, 2027, 11, 0, 0), wallClock(sydneyZone, utc(2027, 1, 1, 0h)));
    EXPECT_EQ(VAKDateMake(1, 7, 2026, 5, 45, 0), wallClock(ZoneRule{5.75}, utc(2026, 7, 1, 0h)));
}

TEST(WallClock, BeginsEveryDayAtMidnightAndKeepsEveryDay) {
    for (const ZoneRule& rule : {centralEurope, sydneyZone}) {
        VAKDate before = wallClock(rule, utc(2026, 1, 1, 0h));
        int daysSeen = 1;
        for (sys_seconds t = utc(2026, 1, 1, 0h); t < utc(2027, 1, 1, 0h); t += 10min) {
            const VAKDate now = wallClock(rule, t);
            if (!sameDay(before, now)) {
                ++daysSeen;
                EXPECT_EQ(0, now.Hours) << now.Months << "/" << now.Days;
            }
            before = now;
        }
        EXPECT_EQ(366, daysSeen);  // the last hours belong to the first day of 2027
    }
}

TEST(CityDay, KnowsWhatTheClockShowsOnTheOtherSideOfAChange) {
    Site helsinki{60.1695, 24.9354, {2.0, true, 2, weekdayRule(0, 4), 9, weekdayRule(0, 4), 1}, true};
    ZoneKnowledge known;
    known.zone = SystemZone::parseText("1577836800 7200 0;EET-2EEST,M3.5.0/3,M10.5.0/4");
    ASSERT_TRUE(known.zone);
    helsinki.known = std::make_shared<const ZoneKnowledge>(known);
    const CityDay change = computeCityDay(helsinki, VAKDateMake(29, 3, 2026, 0, 0, 0));
    const int shown = shownMinute(change.times.Imsak);
    EXPECT_EQ(shown - 60, otherClockMinute(helsinki.clock(), change, change.times.Imsak));
    EXPECT_EQ(std::nullopt, otherClockMinute(helsinki.clock(), change, change.times.Ogle));
    EXPECT_EQ(std::nullopt, otherClockMinute(helsinki.clock(), change, std::nullopt));
    const CityDay eve = computeCityDay(helsinki, VAKDateMake(28, 3, 2026, 0, 0, 0));
    EXPECT_EQ(std::nullopt, otherClockMinute(helsinki.clock(), eve, eve.times.Imsak));
}

TEST(NextPrayer, IsAlwaysAheadAndWithinADay) {
    for (const Site& site : {istanbul, berlin}) {
        for (sys_seconds now = utc(2026, 1, 1, 0h); now < utc(2027, 1, 1, 0h); now += 7h + 13min) {
            const auto next = nextPrayer(site, now);
            ASSERT_TRUE(next);
            EXPECT_GT(next->instant, now);
            EXPECT_LT(next->instant - now, 12h);
        }
    }
}

TEST(NextPrayer, ChangesAtTheShownMinute) {
    const CityDay day = computeCityDay(istanbul, VAKDateMake(21, 11, 2026, 0, 0, 0));
    const sys_seconds noon = instantOf(day, day.times.Ogle);
    EXPECT_EQ(202, nextPrayer(istanbul, noon - 1s)->code);
    EXPECT_EQ(203, nextPrayer(istanbul, noon)->code);
}

TEST(NextPrayer, AroundMidnightIsDawnOfTheNewDay) {
    for (const auto time :
         {20h + 59min + 59s, 21h + 0min + 0s, 21h + 0min + 1s}) {  // 23:59:59, 0:00:00, 0:00:01 in Istanbul
        const auto next = nextPrayer(istanbul, utc(2026, 11, 21, time));
        ASSERT_TRUE(next);
        EXPECT_EQ(200, next->code);
        EXPECT_EQ(22, next->date.Days);
    }
}

TEST(NextPrayer, AfterMidnightMayStillBeTheNightPrayerOfYesterday) {
    // In June the night prayer of this latitude falls after midnight.
    const CityDay yesterday = computeCityDay(tromso, VAKDateMake(20, 6, 2026, 0, 0, 0));
    ASSERT_GT(yesterday.times.IsaEvvel, 24.0);
    const auto next = nextPrayer(tromso, instantOf(yesterday, yesterday.times.IsaEvvel) - 1min);
    ASSERT_TRUE(next);
    EXPECT_EQ(205, next->code);
    EXPECT_EQ(20, next->date.Days);
}

TEST(NextPrayer, CountsInstantsAcrossBothClockChanges) {
    for (const auto& [month, day] : {std::pair{3u, 28u}, std::pair{10u, 24u}}) {
        const VAKDate date = VAKDateMake(int(day), int(month), 2026, 0, 0, 0);
        const CityDay before = computeCityDay(berlin, date);
        const auto next = nextPrayer(berlin, instantOf(before, before.times.IsaEvvel));
        ASSERT_TRUE(next);
        EXPECT_EQ(200, next->code);
        // Dawn moves by a few minutes a day in universal time, whatever the clocks do.
        const auto night = next->instant - instantOf(before, before.times.Imsak);
        EXPECT_NEAR(24.0 * 60.0, double(std::chrono::duration_cast<std::chrono::minutes>(night).count()), 5.0);
    }
}

TEST(Sky, TellsASunriseWithoutASunsetByTheClockOfThePlace) {
    const CityDay before = computeCityDay(tromso, VAKDateMake(15, 5, 2026, 0, 0, 0));
    const CityDay last = computeCityDay(tromso, VAKDateMake(16, 5, 2026, 0, 0, 0));
    ASSERT_NE(missingTime, before.sky.SunSet);
    ASSERT_EQ(missingTime, last.sky.SunSet) << "the midnight sun begins";
    // The Sun rises slightly earlier every day; universal time would differ by two hours.
    EXPECT_LT(last.sky.SunRise, before.sky.SunRise);
    EXPECT_NEAR(before.sky.SunRise, last.sky.SunRise, 0.5);
}

TEST(Site, OfACityReadsItsTexts) {
    EXPECT_EQ((Site{}).rule, ZoneRule{});
    CityRecord record;
    record.latitude = 1.5;
    record.longitude = -2.5;
    record.rule = centralEurope;
    record.temkin = false;
    EXPECT_EQ((Site{1.5, -2.5, centralEurope, false}), siteOf(record));
}

}  // namespace
}  // namespace quode
