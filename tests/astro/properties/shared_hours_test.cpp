// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The searches cache the values of an hour. Here they are compared with plain searches without a cache: every result and
// every field must be the same to the last bit.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/angles.h"

namespace quode {
namespace {

struct Day {
    double latitude = 0.0, longitude = 0.0, zone = 0.0;
    int day = 1, month = 1, year = 2026;
};

std::vector<Day> days(int count) {
    std::mt19937 random(19920412);
    const auto pick = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    const auto pickWhole = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    std::vector<Day> sample;
    for (int i = 0; i < count; ++i) {
        sample.push_back({pick(-90.0, 90.0), pick(-180.0, 180.0), pickWhole(-56, 56) / 4.0, pickWhole(1, 28),
                          pickWhole(1, 12), pickWhole(1, 9999)});
    }
    return sample;
}

FastAstro engineFor(const Day& d) {
    FastAstro engine;
    engine.SetCurrentDate(d.day, d.month, d.year);
    engine.SetPlace(d.latitude, d.longitude, d.zone, 0, 0, 0, 0, 0, 0.0, 0);
    return engine;
}

/// All fields that a search may set, as bits.
std::vector<std::uint64_t> fieldsOf(const FastAstro& e) {
    std::vector<std::uint64_t> bits;
    for (const double field :
         {e.MoonRise(), e.MoonSet(), e.UTRise(), e.UTSet(), e.YE(), e.Zero1(), e.Zero2(), e.DX(), e.L_Moon(),
          e.B_Moon(), e.MoonDec(), e.MoonRA(), e.MoonGHA(), e.SunDec(), e.SunRA(), e.EclipticLongitude()}) {
        bits.push_back(std::bit_cast<std::uint64_t>(field));
    }
    return bits;
}

namespace plain {

void intoDay(int& day, int& hour) {
    if (hour < 0) {
        hour += 24;
        --day;
    } else if (hour >= 24) {
        hour -= 24;
        ++day;
    }
}

void MoonRiseSet(FastAstro& e, int day, int month, int year, int hour) {
    intoDay(day, hour);
    const double julianDay = AstroGlobalFuncs::CalculateJulianDay(year, month, day, hour, 0, 0);
    const auto height = [&](double moment) {
        e.MoonDecRA(moment);
        return FastAstro::SinElev(moment, e.Lat(), -e.Lon(), e.MoonDec(), e.MoonRA()) - 0.0023265217863302867;
    };
    const double before = height(julianDay - 0.0416666679084301);
    const double middle = height(julianDay);
    const double after = height(julianDay + 0.0416666679084301);
    const int roots = e.Quad(before, after, middle);
    if (roots == 1 && before < 0.0) e.setMoonRise(hour + e.Zero1());
    if (roots == 1 && !(before < 0.0)) e.setMoonSet(hour + e.Zero1());
    if (roots == 2) {
        e.setMoonRise(hour + (e.YE() < 0.0 ? e.Zero2() : e.Zero1()));
        e.setMoonSet(hour + (e.YE() < 0.0 ? e.Zero1() : e.Zero2()));
    }
}

void MoonRiseThenSet(FastAstro& e, const Day& d) {
    const int zone = static_cast<int>(d.zone);
    e.setMoonRise(missingMoonTime);
    for (int hour = 1 - zone; hour < 24 - zone && e.MoonRise() == missingMoonTime; ++hour) {
        MoonRiseSet(e, d.day, d.month, d.year, hour);
    }
    e.setMoonSet(missingMoonTime);
    for (int hour = 1 - zone; hour < 24 - zone && e.MoonSet() == missingMoonTime; ++hour) {
        MoonRiseSet(e, d.day, d.month, d.year, hour);
    }
}

void SunRiseSet(FastAstro& e, const Day& d) {
    e.setRise(false);
    e.setSett(false);
    e.setUTRise(missingTime);
    e.setUTSet(missingTime);
    const int zone = static_cast<int>(d.zone);
    for (int scanned = 1 - zone; scanned < 24 - zone && !(e.Rise() && e.Sett()); ++scanned) {
        int day = d.day, hour = scanned;
        intoDay(day, hour);
        const auto height = [&](int h) {
            const double moment = AstroGlobalFuncs::CalculateJulianDay(d.year, d.month, day, h, 0, 0);
            e.SunDecRA(moment);
            return FastAstro::SinElev(moment, e.Lat(), -e.Lon(), e.SunDec(), e.SunRA()) + 0.014543315834289784;
        };
        const double middle = height(hour);
        const double after = height(hour + 1);
        const double before = height(hour - 1);
        const int roots = e.Quad(before, after, middle);
        if (roots == 0) continue;
        const bool both = roots == 2;
        if (both || before < 0.0) {
            e.setUTRise(hour + (both && e.YE() < 0.0 ? e.Zero2() : e.Zero1()));
            e.setRise(true);
        }
        if (both || !(before < 0.0)) {
            e.setUTSet(hour + (both && !(e.YE() < 0.0) ? e.Zero2() : e.Zero1()));
            e.setSett(true);
        }
    }
}

/// The transit as all its moments, of which only the last one leaves a trace.
void MoonTransTime(FastAstro& e, const Day& d) {
    const auto look = [&](double time) {
        int hour = 0, minute = 0, second = 0;
        AstroGlobalFuncs::ToHMS(time, hour, minute, second);
        e.MoonTrueAltitude(AstroGlobalFuncs::CalculateJulianDay(d.year, d.month, d.day, hour, minute, second));
    };
    for (int hour = 0; hour <= 24; ++hour) look(hour);
    for (int minute = 0; minute < 122; ++minute) look(23.0 + minute / 60.0);
}

VAKDate calendarDate(double julianDay) {
    VAKDate date;
    AstroGlobalFuncs::JulianToCalendar(julianDay, date, true);
    return date;
}

double midnight(const VAKDate& d, int later = 0) {
    return AstroGlobalFuncs::CalculateJulianDay(d.Years, d.Months, d.Days + later, 0, 0, 0);
}

/// First day of the month that the last crescent before a day begins: computes and checks a new moon every ten days, back
/// from ten days after the day, without a cache.
std::optional<double> monthStart(FastAstro& e, double today) {
    VAKDate searched = calendarDate(today + 10.0);
    for (int back = 0; back <= 400; back += 10) {
        const double year = static_cast<float>(searched.Years) + static_cast<float>(searched.Months) / 12.0f +
                            static_cast<float>(searched.Days) / 365.0f;
        const double newMoon = FastAstro::MoonPhaze(year, 0);
        searched = calendarDate(today - back);
        if (newMoon >= today) continue;
        const VAKDate conjunction = calendarDate(newMoon);
        VAKDate crescent = conjunction;
        e.GetCrescentDate(crescent);
        if (midnight(crescent) > today) continue;
        if (sameDay(crescent, conjunction)) return midnight(crescent, 1);
        SunData sun;
        e.SunRiseSetTrans(crescent, sun);
        VAKDate sunset = crescent;
        AstroGlobalFuncs::ToHMS(sun.SetTime, sunset.Hours, sunset.Minutes, sunset.Seconds);
        const bool seen = e.MoonAppAltitude(sunset) >= 7.989999771118164 && crescent.Hours > 9;
        const double start = midnight(crescent, seen ? 0 : 1);
        if (start <= today) return start;
    }
    return std::nullopt;
}

}  // namespace plain

TEST(SharedHours, LeaveTheMoonsSearchUnchangedToTheLastBit) {
    for (const Day& d : days(4000)) {
        FastAstro shared = engineFor(d), expected = engineFor(d);
        plain::MoonRiseThenSet(expected, d);
        for (int again = 0; again < 2; ++again) {
            shared.MoonRiseTime(d.day, d.month, d.year);
            shared.MoonSetTime(d.day, d.month, d.year);
            ASSERT_EQ(fieldsOf(expected), fieldsOf(shared)) << d.year << "-" << d.month << "-" << d.day;
        }
    }
}

TEST(SharedHours, LeaveTheSunsSearchUnchangedToTheLastBit) {
    for (const Day& d : days(4000)) {
        FastAstro shared = engineFor(d), expected = engineFor(d);
        plain::SunRiseSet(expected, d);
        for (int again = 0; again < 2; ++again) {
            shared.SunRiseSet(d.day, d.month, d.year);
            ASSERT_EQ(fieldsOf(expected), fieldsOf(shared)) << d.year << "-" << d.month << "-" << d.day;
            ASSERT_EQ(expected.Rise(), shared.Rise());
            ASSERT_EQ(expected.Sett(), shared.Sett());
        }
    }
}

TEST(SharedHours, ForgetWhatWasComputedForAnotherPlace) {
    const Day istanbul{41.01, 28.95, 3.0, 20, 3, 2026}, sydney{-33.87, 151.21, 3.0, 20, 3, 2026};
    FastAstro moved = engineFor(istanbul);
    moved.getSomeInfoForQuodeWidget();
    moved.SetLatLon(sydney.latitude, sydney.longitude);
    FastAstro fresh = engineFor(sydney);
    const WidgetSkyInfo expected = fresh.getSomeInfoForQuodeWidget(), actual = moved.getSomeInfoForQuodeWidget();
    EXPECT_EQ(expected.SunRise, actual.SunRise);
    EXPECT_EQ(expected.MoonRise, actual.MoonRise);
    EXPECT_EQ(expected.MoonSet, actual.MoonSet);
}

TEST(ConstantTransit, LeavesTheFieldsOfItsLastMoment) {
    for (const Day& d : days(200)) {
        FastAstro shortened = engineFor(d), expected = engineFor(d);
        plain::MoonTransTime(expected, d);
        shortened.MoonTransTime(d.day, d.month, d.year);
        ASSERT_EQ(fieldsOf(expected), fieldsOf(shortened));
        ASSERT_EQ(expected.MoonAlt(), shortened.MoonAlt());
    }
}

TEST(CrescentSearch, FindsTheMonthThatThePlainSearchFinds) {
    for (double today = 2440000.5; today < 2480000.5; today += 13.0) {
        FastAstro engine, expected = engineFor(Day{21.43000030517578, 39.83000183105469, 0.0});
        const VAKDate day = plain::calendarDate(today);
        VAKDate hijri;
        engine.RealGregJulToHicri(day.Days, day.Months, day.Years, hijri);
        const std::optional<double> start = plain::monthStart(expected, plain::midnight(day));
        ASSERT_TRUE(start.has_value());
        ASSERT_EQ(static_cast<int>(plain::midnight(day) - *start + 1.0), hijri.Days) << today;
    }
}

}  // namespace
}  // namespace quode
