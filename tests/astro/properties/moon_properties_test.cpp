// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Properties of the Moon for every place on Earth and every year.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/MoonPhases.h"
#include "astro/MoonTransit.h"

namespace quode {
namespace {

struct Case {
    double latitude = 0.0, longitude = 0.0, zone = 0.0;
    VAKDate date;
};

std::ostream& operator<<(std::ostream& out, const Case& c) {
    return out << c.latitude << " " << c.longitude << " zone " << c.zone << " on " << c.date.Years << "-"
               << c.date.Months << "-" << c.date.Days << " " << c.date.Hours << ":" << c.date.Minutes;
}

/// Places all over the Earth, including the poles and the equator, in any zone and any year.
std::vector<Case> anywhere(int count, int lastYear = 9999) {
    std::mt19937 random(14290101);
    const auto pick = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    const auto pickWhole = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    const std::vector<double> latitudes = {-90.0, 90.0, 0.0, 89.9999, -89.9999, 66.5},
                              longitudes = {-180.0, 180.0, 0.0};
    std::vector<Case> cases;
    for (int i = 0; i < count; ++i) {
        Case c{pick(-90.0, 90.0), pick(-180.0, 180.0), pickWhole(-56, 56) / 4.0,
               VAKDate{pickWhole(1, lastYear), pickWhole(1, 12), pickWhole(1, 28), pickWhole(0, 23), pickWhole(0, 59),
                       pickWhole(0, 59)}};
        if (i % 5 == 0) c.latitude = latitudes[static_cast<std::size_t>(i / 5) % latitudes.size()];
        if (i % 7 == 0) c.longitude = longitudes[static_cast<std::size_t>(i / 7) % longitudes.size()];
        cases.push_back(c);
    }
    return cases;
}

FastAstro engineFor(const Case& c) {
    FastAstro engine;
    engine.setLog([](std::string_view) {});
    engine.SetCurrentDateTime(c.date);
    engine.SetPlace(c.latitude, c.longitude, c.zone, 0, 0, 0, 0, 0, 0.0, 0);
    return engine;
}

bool allFinite(const std::vector<double>& values) {
    return std::all_of(values.begin(), values.end(), [](double x) { return std::isfinite(x); });
}

TEST(MoonEverywhere, HasFiniteRecords) {
    for (const Case& c : anywhere(3000)) {
        FastAstro engine = engineFor(c);
        MoonInfo risen;
        engine.MoonRiseSetTrans(c.date, risen);
        engine.setMoon(risen);
        const MoonInfo m = engine.MoonInformation(c.date, c.latitude, c.longitude);
        ASSERT_TRUE(
            allFinite({m.Dec, m.RA, m.TrueAlt, m.AppAlt, m.Azimuth, m.RiseTime, m.TransTime, m.SetTime, m.SideRealTime,
                       m.Distance, m.HorParal, m.Diameter, m.Elongation, m.IlluminatedFraction, m.GHA}))
            << c;
        ASSERT_TRUE(m.RA >= 0.0 && m.RA < 24.0) << c;
        ASSERT_TRUE(std::abs(m.Dec) < 30.0) << c;
        ASSERT_TRUE(m.Distance > 355000.0 && m.Distance < 408000.0) << c;
        ASSERT_TRUE(m.Elongation >= 0.0 && m.Elongation <= 181.0) << c;
        ASSERT_TRUE(m.IlluminatedFraction >= 0.0 && m.IlluminatedFraction <= 100.0) << c;
    }
}

TEST(MoonEverywhere, HasFiniteDirections) {
    for (const Case& c : anywhere(3000)) {
        FastAstro engine = engineFor(c);
        DirectionInfo d;
        engine.MoonInformationForDirection(c.date, d);
        engine.SunInformationForDirection(c.date, d);
        ASSERT_TRUE(allFinite({d.SunRise, d.SunSet, d.SunAzimuth, d.SunAltitude, d.MoonRise, d.MoonSet, d.MoonAzimuth,
                               d.MoonAltitude, d.MoonElongation}))
            << c;
        CrescentInfo crescent;
        engine.MoonInformationforCrescent(c.date, 3, crescent);
        ASSERT_TRUE(allFinite({crescent.MoonAltitude, crescent.MoonElongation})) << c;
        const WidgetSkyInfo sky = engine.getSomeInfoForQuodeWidget();
        ASSERT_TRUE(allFinite({sky.SunRise, sky.SunSet, sky.MoonRise, sky.MoonSet, sky.MoonAltitudeOnSunSet})) << c;
    }
}

TEST(SunEverywhere, HasFiniteRecords) {
    for (const Case& c : anywhere(3000)) {
        FastAstro engine = engineFor(c);
        const SunData s = engine.SunInformation(c.date, c.latitude, c.longitude);
        ASSERT_TRUE(allFinite({s.Dec, s.RA, s.Alt, s.Azimuth, s.RiseTime, s.TransTime, s.SetTime, s.SideRealTime,
                               s.EquationTime, s.Distance, s.Diameter, s.Shadow, s.GHA}))
            << c;
    }
}

double moonElevation(FastAstro& engine, double julianDay) {
    engine.MoonDecRA(julianDay);
    return FastAstro::SunElev(julianDay, engine.Lat(), -engine.Lon(), engine.MoonDec(), engine.MoonRA());
}

TEST(MoonEverywhere, StandsOnTheHorizonWhenItRisesAndSets) {
    // The search fits a parabola to three points an hour apart; far from the poles it is good to a few arc minutes.
    int found = 0;
    for (const Case& c : anywhere(1500, 2500)) {
        if (std::abs(c.latitude) > 60.0) continue;
        FastAstro engine = engineFor(c);
        for (const bool rising : {true, false}) {
            rising ? engine.MoonRiseTime(c.date.Days, c.date.Months, c.date.Years)
                   : engine.MoonSetTime(c.date.Days, c.date.Months, c.date.Years);
            const double hours = rising ? engine.MoonRise() : engine.MoonSet();
            if (hours == missingMoonTime) continue;
            // Hours count from the midnight of the universal day that the search ended in: one of three.
            double nearest = 90.0;
            for (const int dayOffset : {-1, 0, 1}) {
                const double moment = AstroGlobalFuncs::CalculateJulianDay(c.date.Years, c.date.Months,
                                                                           c.date.Days + dayOffset, 0, 0, 0) +
                                      hours / 24.0;
                nearest = std::min(nearest, std::abs(moonElevation(engine, moment) - 8.0 / 60.0));
            }
            ASSERT_LT(nearest, 0.15) << c << (rising ? " rise " : " set ") << hours;
            ++found;
        }
    }
    EXPECT_GT(found, 1500);
}

TEST(HijriEverywhen, IsAnOrderlyDateInEveryYear) {
    for (const Case& c : anywhere(3000)) {
        FastAstro engine = engineFor(c);
        AllCalendarInfo info;
        engine.ConvertAllCalendar(c.date, info);
        ASSERT_TRUE(info.DayOfWeek >= 0 && info.DayOfWeek <= 6) << c;
        ASSERT_TRUE(info.RumiMonth >= 1 && info.RumiMonth <= 12 && info.RumiDay >= 1 && info.RumiDay <= 31) << c;
        ASSERT_TRUE(info.DayOfSeason >= 1 && info.DayOfSeason <= 187) << c;
        if (c.date.Years < 623) continue;  // before the Hijri era the tabular date is only a mark
        ASSERT_TRUE(info.HijriMonth >= 1 && info.HijriMonth <= 12) << c;
        ASSERT_TRUE(info.HijriDay >= 1 && info.HijriDay <= 31) << c << " day " << info.HijriDay;
    }
}

TEST(HijriEverywhen, RunsThroughItsMonthsDayByDayInOurTime) {
    int previousDay = 0;
    for (double julianDay = 2447892.5; julianDay < 2469807.5; julianDay += 1.0) {
        VAKDate civil, hijri;
        AstroGlobalFuncs::JulianToCalendar(julianDay, civil, true);
        FastAstro engine;
        engine.RealGregJulToHicri(civil.Days, civil.Months, civil.Years, hijri);
        ASSERT_TRUE(hijri.Days >= 1 && hijri.Days <= 31) << julianDay;
        const bool begins = hijri.Days == 1;
        ASSERT_TRUE(previousDay == 0 || (begins ? previousDay >= 28 : hijri.Days == previousDay + 1)) << julianDay;
        previousDay = hijri.Days;
    }
}

TEST(PhasesEverywhen, FollowEachOtherAWeekApart) {
    for (int year = 1; year <= 9999; year += 7) {
        const std::vector<MoonPhase> phases = moonPhasesOfYear(year);
        ASSERT_TRUE(phases.size() >= 48 && phases.size() <= 51) << year;
        for (std::size_t i = 1; i < phases.size(); ++i) {
            const double apart = phases[i].julianDay - phases[i - 1].julianDay;
            ASSERT_TRUE(apart > 6.4 && apart < 8.5) << year << " " << apart;
            ASSERT_EQ((phases[i - 1].phase + 1) % 4, phases[i].phase) << year;
        }
    }
}

TEST(PhasesEverywhen, CountTheAgeOfTheMoonFromTheLastToTheNextNewMoon) {
    for (double julianDay = 1721500.5; julianDay < 5373000.0; julianDay += 701.3) {
        const MoonAge age = moonAge(julianDay);
        ASSERT_GE(age.sinceNewMoon, 0.0) << julianDay;
        ASSERT_GT(age.toNewMoon, 0.0) << julianDay;
        ASSERT_NEAR(29.53, age.sinceNewMoon + age.toNewMoon, 0.5) << julianDay;
    }
    const double newMoon = moonPhasesBetween(2460000.5, 2460030.5).at(0).julianDay;
    const MoonPhase first = moonPhasesBetween(newMoon, newMoon + 1.0).at(0);
    EXPECT_EQ(newMoon, first.julianDay);
}

TEST(TransitEverywhere, HappensOnceInALunarDay) {
    for (const Case& c : anywhere(300)) {
        int missing = 0;
        double previous = -1.0;
        const double first = AstroGlobalFuncs::CalculateJulianDay(c.date.Years, c.date.Months, c.date.Days, 0, 0, 0);
        for (int day = 0; day < 30; ++day) {
            VAKDate date;
            AstroGlobalFuncs::JulianToCalendar(first + day, date, true);
            const double hours = moonTransit(date, c.longitude, c.zone);
            if (hours == missingMoonTime) {
                ++missing;
                continue;
            }
            ASSERT_TRUE(hours >= 0.0 && hours < 24.0) << c;
            const double moment = day * 24.0 + hours;
            ASSERT_TRUE(previous < 0.0 || std::abs(moment - previous - 24.84) < 0.3) << c;
            previous = moment;
        }
        ASSERT_TRUE(missing == 1 || missing == 2) << c << " " << missing;
    }
}

}  // namespace
}  // namespace quode
