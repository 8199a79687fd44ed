// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Properties of the times for every place on Earth and every day.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"

namespace quode {
namespace {

struct Case {
    double latitude = 0.0, longitude = 0.0, zone = 0.0;
    int day = 1, month = 1, year = 2026;
    bool temkin = true;
};

std::ostream& operator<<(std::ostream& out, const Case& c) {
    return out << c.latitude << " " << c.longitude << " zone " << c.zone << " on " << c.year << "-" << c.month << "-"
               << c.day;
}

FastAstro engineFor(const Case& c) {
    FastAstro engine;
    engine.SetCurrentDate(c.day, c.month, c.year);
    engine.SetPlace(c.latitude, c.longitude, c.zone, 0, 0, 0, 0, 0, 0, c.temkin ? 1 : 0);
    return engine;
}

/// Places all over the Earth, including the poles and the equator, in any zone and any year.
std::vector<Case> anywhere(int count, int firstYear, int lastYear) {
    std::mt19937 random(20261121);
    const auto pick = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    const auto pickWhole = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    std::vector<Case> cases;
    for (int i = 0; i < count; ++i) {
        Case c{pick(-90.0, 90.0), pick(-180.0, 180.0), pickWhole(-56, 56) / 4.0,
               pickWhole(1, 28),  pickWhole(1, 12),    pickWhole(firstYear, lastYear),
               i % 2 == 0};
        if (i % 10 == 0)
            c.latitude = std::vector{-90.0, 90.0, 0.0, -0.0, 66.5, -66.5, 60.0, -60.0}[std::size_t(i / 10) % 8];
        if (i % 11 == 0)
            c.longitude =
                std::vector{-180.0, 180.0, 0.0, 39.81999969482422, -140.1699981689453}[std::size_t(i / 11) % 5];
        cases.push_back(c);
    }
    return cases;
}

/// Inhabited latitudes with the zone that the longitude suggests, over the days of one year.
std::vector<Case> naturalDays(double farthestLatitude) {
    std::vector<Case> cases;
    for (double latitude = -farthestLatitude; latitude <= farthestLatitude; latitude += 4.7) {
        for (int month = 1; month <= 12; ++month) {
            for (const int day : {3, 11, 21}) {
                const double longitude = std::fmod(latitude * 37.0 + month * 29.0, 180.0);
                cases.push_back({latitude, longitude, std::round(longitude / 15.0), day, month, 2026, true});
            }
        }
    }
    return cases;
}

void expectRealOrMarked(const PrayTimes& times, const Case& c) {
    for (int slot = 0; slot < PrayTimes::slotCount; ++slot) {
        const double time = times.slot(slot);
        ASSERT_TRUE(std::isfinite(time)) << c << " slot " << slot;
        if (slot < 12) {
            ASSERT_LT(std::abs(time), 100.0) << c << " slot " << slot;
        }
    }
}

TEST(PrayerTimes, EndAndAreRealOrMarkedEverywhereInEveryYear) {
    for (const Case& c : anywhere(1500, 1, 9999)) {
        FastAstro engine = engineFor(c);
        const Place place = engine.CalculatePrayTimes();
        expectRealOrMarked(place.TodayPrayTimes, c);
        ASSERT_TRUE(std::isfinite(place.KibleAngle.i) && std::isfinite(place.KibleAngle.K)) << c;
        EXPECT_EQ(c.latitude, engine.Lat()) << "the engine's latitude is restored: " << c;
        engine.CalculateNextPrayTimes();
        expectRealOrMarked(engine.iPlace().NextPrayTimes, c);
    }
}

TEST(PrayerTimes, FollowOneAnotherWhereNoFallbackRan) {
    int compared = 0;
    for (const Case& c : naturalDays(64.0)) {
        const PrayTimes t = engineFor(c).CalculatePrayTimes().TodayPrayTimes;
        if (t.isLatitudeChanged || t.isImsakBeforeTime || t.isIsaEvvelBeforeTime) continue;
        ++compared;
        EXPECT_LT(t.Imsak, t.Gunes) << c;
        EXPECT_LT(t.Gunes, t.Zeval) << c;
        EXPECT_LT(t.Zeval, t.Ogle) << c;
        EXPECT_LT(t.Ogle, t.AsriEvvel) << c;
        EXPECT_LT(t.AsriEvvel, t.AsriSani) << c;
        EXPECT_LT(t.AsriEvvel, t.Aksam) << c;
        EXPECT_LT(t.Aksam, t.IsaEvvel) << c;
        EXPECT_LT(t.Aksam, t.Gece3) << c;
        EXPECT_LT(t.Gece3, t.Gece2) << c;
        EXPECT_LT(t.Teheccud, t.Imsak) << c;
    }
    EXPECT_GT(compared, 700);
}

TEST(PrayerTimes, AreFlaggedExactlyWhenAFallbackRan) {
    int lowered = 0, earlierDawn = 0, earlierNight = 0, plain = 0;
    for (const Case& c : naturalDays(89.0)) {
        const PrayTimes t = engineFor(c).CalculatePrayTimes().TodayPrayTimes;
        FastAstro probe = engineFor(c);
        const SunInfoForPray sun = probe.SunInformationForPray(c.day, c.month, c.year);
        const bool sunMissing = sun.SunRise == missingTime || sun.SunSet == missingTime;
        EXPECT_EQ(sunMissing, t.isLatitudeChanged) << c;
        lowered += sunMissing;
        if (sunMissing) continue;
        double time = 0.0;
        const double margin = FastAstro::Temkin(c.latitude, c.temkin);
        const auto reached = [&](int angle, int side) {
            return FastAstro::Iterasyon(time, c.latitude, c.longitude / -15.0, side * margin, c.zone, angle, side,
                                        sun) == 1;
        };
        EXPECT_EQ(!reached(-19, -1), t.isImsakBeforeTime) << c;
        EXPECT_EQ(!reached(-17, 1), t.isIsaEvvelBeforeTime) << c;
        earlierDawn += t.isImsakBeforeTime;
        earlierNight += t.isIsaEvvelBeforeTime;
        plain += !t.isImsakBeforeTime;
    }
    EXPECT_GT(lowered, 50);
    EXPECT_GT(earlierDawn, 50);
    EXPECT_GT(earlierNight, 50);
    EXPECT_GT(plain, 500);
}

TEST(PrayerTimes, OfTomorrowAreTodaysOfTomorrow) {
    for (const Case& c : naturalDays(55.0)) {
        if (c.day != 11) continue;
        FastAstro today = engineFor(c);
        today.CalculateNextPrayTimes();
        Case tomorrow = c;
        ++tomorrow.day;
        EXPECT_EQ(engineFor(tomorrow).CalculatePrayTimes().TodayPrayTimes, today.iPlace().NextPrayTimes) << c;
    }
}

TEST(SunriseAndSunset, AreInTheirDayOrMarkedEverywhere) {
    for (const Case& c : anywhere(1500, 1, 9999)) {
        FastAstro engine = engineFor(c);
        engine.SunRiseSet(c.day, c.month, c.year);
        EXPECT_EQ(engine.Rise(), engine.UTRise() != missingTime) << c;
        EXPECT_EQ(engine.Sett(), engine.UTSet() != missingTime) << c;
        ASSERT_TRUE(std::abs(engine.UTRise()) <= 25.0 && std::abs(engine.UTSet()) <= 25.0) << c;
    }
}

TEST(Sun, IsRealInEveryYear) {
    for (double jd = 1721423.5; jd < 5373484.5; jd += 997.3) {
        FastAstro engine;
        engine.SunDecRA(jd);
        const double fast = engine.SunDec();
        ASSERT_TRUE(std::isfinite(fast) && engine.SunRA() >= 0.0 && engine.SunRA() <= 24.0) << jd;
        engine.SunDecRAAccurate(jd);
        ASSERT_TRUE(std::isfinite(engine.SunDec()) && engine.SunRA() >= 0.0 && engine.SunRA() <= 24.0) << jd;
        ASSERT_TRUE(std::isfinite(FastAstro::EquationOfTime(jd, engine.SunRA()))) << jd;
    }
}

TEST(CalendarDate, ComesBackFromEveryJulianDayOfTenThousandYears) {
    VAKDate before;
    AstroGlobalFuncs::JulianToCalendar(AstroGlobalFuncs::CalculateJulianDay(1, 1, 2, 0, 0, 0), before, true);
    for (double jd = 1721425.5; jd < 5373484.5; jd += 1.0) {
        VAKDate date;
        AstroGlobalFuncs::JulianToCalendar(jd, date, true);
        const double back = AstroGlobalFuncs::CalculateJulianDay(date.Years, date.Months, date.Days, 0, 0, 0);
        ASSERT_NEAR(jd, back, 1e-6) << date.Years << "-" << date.Months << "-" << date.Days;
    }
}

}  // namespace
}  // namespace quode
