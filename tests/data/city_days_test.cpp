// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Many days at once are, bit for bit, what they are one by one.
#include "data/city_days.h"

#include <bit>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "astro/MagneticVariation.h"
#include "astro/digest.h"
#include "astro/random_sky.h"
#include "data/day_engine.h"

namespace quode {
namespace {

using test::Digest;
using test::RandomNumbers;

Site randomSite(RandomNumbers& random) {
    const test::RandomPlace place = test::randomPlace(random);
    Site site{place.latitude, place.longitude, {}, place.temkin == 1};
    site.rule = {place.zone, place.dst == 1, place.startMonth, place.startDay, place.stopMonth, place.stopDay, 1};
    return site;
}

std::uint64_t bitsOf(const CityDay& day) {
    Digest digest;
    digest.add(day.date);
    digest.add(day.times);
    digest.add(day.sky);
    for (const double value : {day.GMTValue, day.kible.i, day.kible.K, day.declination}) digest.add(value);
    digest.add(day.isDSTTime);
    return digest.sum();
}

/// A day by an engine that does not know what is needed, and remembers nothing.
CityDay plainDay(const Site& site, const VAKDate& day) {
    const ZoneRule& rule = site.rule;
    FastAstro engine;
    engine.SetCurrentDateTime(day);
    engine.SetPlace(site.latitude, site.longitude, rule.gmt, rule.dst ? 1 : 0, rule.startMonth, rule.startDay,
                    rule.stopMonth, rule.stopDay, rule.hour, site.temkin ? 1 : 0);
    CityDay result;
    const Place& place = engine.CalculatePrayTimes();
    result.date = day;
    result.times = place.TodayPrayTimes;
    result.GMTValue = place.GMTValue;
    result.isDSTTime = place.isDSTTime;
    result.kible = place.KibleAngle;
    result.sky = withLocalSun(engine.getSomeInfoForQuodeWidget(), result.GMTValue);
    result.declination =
        MagneticVariation().getMagneticVariation(day.Days, day.Months, day.Years, site.latitude, site.longitude, 500.0);
    return result;
}

TEST(CityDay, IsWhatAPlainEngineComputes) {
    RandomNumbers random(11);
    for (int i = 0; i < 3000; ++i) {
        const Site site = randomSite(random);
        const VAKDate day = test::randomDay(random);
        ASSERT_EQ(bitsOf(computeCityDay(site, day)), bitsOf(plainDay(site, day)))
            << i << ": latitude " << site.latitude << ", year " << day.Years;
    }
}

TEST(Declinations, OfManyPlacesAreWhatTheyAreOneByOne) {
    RandomNumbers random(14);
    std::vector<MagneticVariation::Point> places{{90.0, 20.0, 0.0}, {-90.0, 20.0, 0.0}, {-90.0, 1.0, 0.0}};
    for (int i = 0; i < 4000; ++i) {
        const test::RandomPlace place = test::randomPlace(random);
        places.push_back({place.latitude, place.longitude, random.between(-100.0, 9000.0)});
    }
    for (int i = 0; i < 5; ++i) {
        const VAKDate day = test::randomDay(random);
        std::vector<double> results(places.size());
        MagneticVariation::declinations(MagneticVariation::fieldAt(day.Days, day.Months, day.Years), places, results);
        for (std::size_t k = 0; k < places.size(); ++k) {
            const auto& [latitude, longitude, altitude] = places[k];
            const double alone = MagneticVariation().getMagneticVariation(day.Days, day.Months, day.Years, latitude,
                                                                          longitude, altitude);
            ASSERT_EQ(std::bit_cast<std::uint64_t>(results[k]), std::bit_cast<std::uint64_t>(alone)) << i << " " << k;
        }
    }
}

TEST(CityDays, OfAPlaceAreWhatTheyAreOneByOne) {
    RandomNumbers random(12);
    for (int i = 0; i < 40; ++i) {
        const Site site = randomSite(random);
        const VAKDate first = test::randomDay(random);
        const std::vector<VAKDate> days = daysBetween(first, VAKDateMake(28, 12, first.Years, 0, 0, 0));
        std::vector<CityDay> results(days.size());
        computeDays(site, days, results);
        for (std::size_t k = 0; k < days.size(); k += 3) {
            ASSERT_EQ(bitsOf(results[k]), bitsOf(computeCityDay(site, days[k]))) << i << " " << k;
        }
    }
}

TEST(CityDays, OfManyPlacesAreWhatTheyAreOneByOne) {
    RandomNumbers random(13);
    for (int i = 0; i < 20; ++i) {
        const VAKDate day = test::randomDay(random);
        std::vector<Site> sites;
        for (int k = 0; k < 150; ++k) sites.push_back(randomSite(random));
        std::vector<CityDay> results(sites.size());
        computeDays(sites, day, results);
        for (std::size_t k = 0; k < sites.size(); ++k) {
            ASSERT_EQ(bitsOf(results[k]), bitsOf(computeCityDay(sites[k], day))) << i << " " << k;
        }
    }
}

TEST(CityDays, InAnyOrderAreWhatTheyAreOneByOne) {
    RandomNumbers random(14);
    CityDays series;
    for (int i = 0; i < 2000; ++i) {
        const Site site = randomSite(random);
        const VAKDate day = test::randomDay(random);
        CityDay result;
        series.computeTimes(site, day, result);
        const CityDay alone = computeCityDay(site, day);
        ASSERT_EQ(result.times, alone.times) << i;
        ASSERT_EQ(result.GMTValue, alone.GMTValue) << i;
        if (i % 2 == 0) continue;
        series.compute(site, day, result);
        ASSERT_EQ(bitsOf(result), bitsOf(alone)) << i;
    }
}

TEST(DaysBetween, FollowTheCalendar) {
    const auto shown = [](int fromDay, int fromMonth, int year, int toDay, int toMonth) {
        std::vector<std::pair<int, int>> days;
        for (const VAKDate& day :
             daysBetween(VAKDateMake(fromDay, fromMonth, year, 9, 0, 0), VAKDateMake(toDay, toMonth, year, 0, 0, 0))) {
            EXPECT_EQ(day.Years, year);
            EXPECT_EQ(day.Hours, 0);
            days.emplace_back(day.Months, day.Days);
        }
        return days;
    };
    using testing::ElementsAre;
    using testing::Pair;
    EXPECT_THAT(shown(27, 2, 2028, 1, 3), ElementsAre(Pair(2, 27), Pair(2, 28), Pair(2, 29), Pair(3, 1)));
    EXPECT_THAT(shown(28, 2, 2100, 1, 3), ElementsAre(Pair(2, 28), Pair(3, 1)));
    EXPECT_THAT(shown(28, 2, 1500, 1, 3), ElementsAre(Pair(2, 28), Pair(2, 29), Pair(3, 1)));
    EXPECT_THAT(shown(3, 10, 1582, 16, 10), ElementsAre(Pair(10, 3), Pair(10, 4), Pair(10, 15), Pair(10, 16)));
    EXPECT_THAT(shown(2, 5, 2026, 1, 5), ElementsAre());
    EXPECT_EQ(daysBetween(VAKDateMake(1, 1, 1, 0, 0, 0), VAKDateMake(31, 12, 1, 0, 0, 0)).size(), 365U);
    EXPECT_EQ(daysBetween(VAKDateMake(31, 12, 2026, 0, 0, 0), VAKDateMake(1, 1, 2027, 0, 0, 0)).size(), 2U);
}

}  // namespace
}  // namespace quode
