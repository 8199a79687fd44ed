// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "support/tolerances.h"
#include "support/vectors.h"

namespace quode {
namespace {

using test::relative;
using test::Vector;
using test::vectorsOf;
using test::whole;

VAKDate dateFrom(const std::vector<double>& numbers, std::size_t at) {
    return {whole(numbers[at]),
            whole(numbers[at + 1]),
            whole(numbers[at + 2]),
            whole(numbers[at + 3]),
            whole(numbers[at + 4]),
            whole(numbers[at + 5]),
            0.0};
}

void expectFields(const std::vector<double>& expected, std::size_t at, const VAKDate& actual) {
    EXPECT_EQ(dateFrom(expected, at), actual);
}

TEST(JulianDay, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "CalculateJulianDay")) {
        const double jd = AstroGlobalFuncs::CalculateJulianDay(whole(v.in[0]), whole(v.in[1]), whole(v.in[2]),
                                                               whole(v.in[3]), whole(v.in[4]), whole(v.in[5]));
        EXPECT_NEAR(v.out[0], jd, relative(v.out[0])) << v.describe();
    }
}

TEST(JulianDay, OfTheFirstDayOf2000AtNoonIsJ2000PlusTheNudge) {
    EXPECT_EQ(2451545.0 + 4.999999873689376e-05 / 86400.0, AstroGlobalFuncs::CalculateJulianDay(2000, 1, 1, 12, 0, 0));
}

TEST(JulianDay, RunsOnAcrossTheGregorianReform) {
    EXPECT_NEAR(2299159.5, AstroGlobalFuncs::CalculateJulianDay(1582, 10, 4, 0, 0, 0), 1e-8);
    EXPECT_NEAR(2299160.5, AstroGlobalFuncs::CalculateJulianDay(1582, 10, 15, 0, 0, 0), 1e-8);
}

TEST(CalendarDate, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "JulianToCalendar")) {
        VAKDate date;
        const double day = AstroGlobalFuncs::JulianToCalendar(v.in[0], date, v.in[1] != 0.0);
        EXPECT_NEAR(v.out[0], day, relative(v.out[0])) << v.describe();
        SCOPED_TRACE(v.describe());
        expectFields(v.out, 1, date);
    }
}

TEST(ClockTime, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "ToHMS")) {
        int h = 0, m = 0, s = 0;
        AstroGlobalFuncs::ToHMS(v.in[0], h, m, s);
        EXPECT_EQ(v.out, (std::vector<double>{double(h), double(m), double(s)})) << v.describe();
    }
}

TEST(ClockTime, WrapsIntoTheDay) {
    int h = 0, m = 0, s = 0;
    AstroGlobalFuncs::ToHMS(-1.5, h, m, s);
    EXPECT_EQ(VAKDateMake(0, 0, 0, 22, 30, 0), VAKDateMake(0, 0, 0, h, m, s));
    AstroGlobalFuncs::ToHMS(25.25, h, m, s);
    EXPECT_EQ(VAKDateMake(0, 0, 0, 1, 15, 0), VAKDateMake(0, 0, 0, h, m, s));
}

TEST(ClockTime, EndsForEveryDouble) {
    for (const double hours : {1e300, -1e300, std::nan(""), HUGE_VAL, -HUGE_VAL, -1e-20}) {
        int h = 0, m = 0, s = 0;
        AstroGlobalFuncs::ToHMS(hours, h, m, s);
        EXPECT_TRUE(h >= 0 && h < 24 && m >= 0 && m < 60 && s >= 0 && s < 60) << hours;
    }
}

TEST(Fraction, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "frac"))
        EXPECT_EQ(v.out[0], AstroGlobalFuncs::frac(v.in[0])) << v.describe();
}

TEST(FullCircleArctangent, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "ZArcTan2")) {
        EXPECT_EQ(v.out[0], AstroGlobalFuncs::ZArcTan2(v.in[0], v.in[1])) << v.describe();
    }
}

TEST(FullCircleArctangent, HasItsOwnConstantsOnTheAxes) {
    EXPECT_EQ(4.71238899230957, AstroGlobalFuncs::ZArcTan2(0.0, -2.0));
    EXPECT_EQ(1.5707963705062866, AstroGlobalFuncs::ZArcTan2(0.0, 2.0));
    EXPECT_EQ(0.0, AstroGlobalFuncs::ZArcTan2(0.0, 0.0));
    EXPECT_EQ(0.0, AstroGlobalFuncs::ZArcTan2(2.0, 0.0));
    EXPECT_EQ(3.1415927410125732, AstroGlobalFuncs::ZArcTan2(-2.0, 0.0));
}

TEST(Rounding, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "Round")) {
        EXPECT_EQ(v.out[0], AstroGlobalFuncs::Round(v.in[0], whole(v.in[1]))) << v.describe();
    }
}

TEST(Weekday, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "DayOfWeek")) {
        EXPECT_EQ(whole(v.out[0]), AstroGlobalFuncs::DayOfWeek(whole(v.in[0]), whole(v.in[1]), whole(v.in[2])))
            << v.describe();
    }
}

TEST(SummerTime, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "IsDSTDay")) {
        int start = 0, stop = 0;
        const bool inside = AstroGlobalFuncs::IsDSTDay(whole(v.in[0]), whole(v.in[1]), whole(v.in[2]), whole(v.in[3]),
                                                       whole(v.in[4]), whole(v.in[5]), whole(v.in[6]), start, stop);
        EXPECT_EQ(v.out, (std::vector<double>{inside ? 1.0 : 0.0, double(start), double(stop)})) << v.describe();
    }
}

TEST(SummerTime, RuleDay35IsTheLastSundayOfTheMonth) {
    int start = 0, stop = 0;
    EXPECT_FALSE(AstroGlobalFuncs::IsDSTDay(35, 2, 35, 9, 2026, 3, 28, start, stop));
    EXPECT_EQ(29, start);
    EXPECT_EQ(25, stop);
    EXPECT_TRUE(AstroGlobalFuncs::IsDSTDay(35, 2, 35, 9, 2026, 3, 29, start, stop));
    EXPECT_TRUE(AstroGlobalFuncs::IsDSTDay(35, 2, 35, 9, 2026, 10, 24, start, stop));
    EXPECT_FALSE(AstroGlobalFuncs::IsDSTDay(35, 2, 35, 9, 2026, 10, 25, start, stop));
}

TEST(SummerTime, AWeekdayAboveSaturdayIsNoRule) {
    int start = 0, stop = 0;
    EXPECT_FALSE(AstroGlobalFuncs::IsDSTDay(66, 2, 35, 9, 2026, 7, 1, start, stop));
    EXPECT_EQ(-1, start);
    EXPECT_EQ(-1, stop);
}

TEST(SummerTime, AnImpossibleDateIsOutside) {
    int start = 0, stop = 0;
    EXPECT_FALSE(AstroGlobalFuncs::IsDSTDay(35, 2, 35, 9, 2026, 6, 31, start, stop));
    EXPECT_EQ(-1, start);
    EXPECT_EQ(-1, stop);
}

TEST(TabularHijri, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "GregJulToHicri")) {
        const VAKDate h = AstroGlobalFuncs::GregJulToHicri(whole(v.in[0]), whole(v.in[1]), whole(v.in[2]));
        EXPECT_EQ(v.out, (std::vector<double>{double(h.Years), double(h.Months), double(h.Days)})) << v.describe();
    }
    for (const Vector& v : vectorsOf("time", "JulianToHicri")) {
        const VAKDate h = AstroGlobalFuncs::JulianToHicri(v.in[0]);
        EXPECT_EQ(v.out, (std::vector<double>{double(h.Years), double(h.Months), double(h.Days)})) << v.describe();
    }
}

TEST(TabularHijri, IsMarkedBeforeTheEra) {
    const VAKDate before = AstroGlobalFuncs::JulianToHicri(1948439.0);
    EXPECT_EQ(VAKDateMake(-1, -1, -1, 0, 0, 0), before);
    const VAKDate first = AstroGlobalFuncs::JulianToHicri(1948440.0);
    EXPECT_EQ(VAKDateMake(1, 1, 1, 0, 0, 0), first);
}

TEST(SiderealTime, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "GM_Sidereal_Time")) {
        EXPECT_NEAR(v.out[0], FastAstro::GM_Sidereal_Time(v.in[0]), relative(v.out[0])) << v.describe();
    }
    for (const Vector& v : vectorsOf("time", "LM_Sidereal_Time")) {
        EXPECT_NEAR(v.out[0], FastAstro::LM_Sidereal_Time(v.in[0], v.in[1]), relative(v.out[0])) << v.describe();
    }
}

/// A place with a clock only: GMTValue, DSTValue, start day and month, stop day and month.
FastAstro placeFrom(const std::vector<double>& in) {
    Place place;
    place.GMTValue = in[0];
    place.DSTValue = in[1];
    place.DSTStartDay = whole(in[2]);
    place.DSTStartMonth = whole(in[3]);
    place.DSTStopDay = whole(in[4]);
    place.DSTStopMonth = whole(in[5]);
    FastAstro engine;
    engine.setIPlace(place);
    return engine;
}

TEST(UniversalTime, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "SetUniversalTime")) {
        VAKDate date = dateFrom(v.in, 6);
        placeFrom(v.in).SetUniversalTime(date);
        SCOPED_TRACE(v.describe());
        expectFields(v.out, 0, date);
    }
}

TEST(LocalTime, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("time", "SetLocalTime")) {
        double time = v.in[6];
        placeFrom(v.in).SetLocalTime(time, VAKDateMake(whole(v.in[9]), whole(v.in[8]), whole(v.in[7]), 0, 0, 0));
        EXPECT_NEAR(v.out[0], time, relative(v.out[0])) << v.describe();
    }
}

TEST(LocalTime, OfAMissingEventStaysTheMark) {
    double time = -1.0;
    placeFrom({3.0, 1.0, 35, 2, 35, 9}).SetLocalTime(time, VAKDateMake(1, 7, 2026, 0, 0, 0));
    EXPECT_EQ(-1.0, time);
}

TEST(LocalTime, LosesTheHalfHourOfItsZone) {
    double time = 1.0;
    placeFrom({5.5, 0.0, 0, 0, 0, 0}).SetLocalTime(time, VAKDateMake(1, 7, 2026, 0, 0, 0));
    EXPECT_EQ(6.0, time);
}

TEST(LocalTime, MovesByDays) {
    for (const Vector& v : vectorsOf("time", "SetLocalTimeManual")) {
        VAKDate date = dateFrom(v.in, 0);
        FastAstro::SetLocalTimeManual(date, v.in[6]);
        SCOPED_TRACE(v.describe());
        expectFields(v.out, 0, date);
    }
}

}  // namespace
}  // namespace quode
