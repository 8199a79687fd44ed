// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "support/fixtures.h"
#include "support/tolerances.h"
#include "support/vectors.h"

namespace quode {
namespace {

using test::Vector;
using test::vectorsOf;
using test::whole;
using Numbers = std::vector<double>;

FastAstro engineInZone(double zone) {
    FastAstro engine;
    engine.SetPlace(0.0, 0.0, zone, 0, 0, 0, 0, 0, 0.0, 0);
    return engine;
}

VAKDate hijriOf(int day, int month, int year, double zone = 0.0) {
    FastAstro engine = engineInZone(zone);
    VAKDate hijri;
    engine.RealGregJulToHicri(day, month, year, hijri);
    return hijri;
}

AllCalendarInfo calendarsOf(int day, int month, int year, double zone = 0.0) {
    FastAstro engine = engineInZone(zone);
    AllCalendarInfo info;
    engine.ConvertAllCalendar(VAKDateMake(day, month, year, 0, 0, 0), info);
    return info;
}

Numbers yearMonthDay(const VAKDate& date) {
    return {double(date.Years), double(date.Months), double(date.Days)};
}

TEST(MoonPhase, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("crescent", "MoonPhaze")) {
        EXPECT_NEAR(v.out[0], FastAstro::MoonPhaze(v.in[0], whole(v.in[1])), 1e-9) << v.describe();
    }
}

TEST(CrescentMoment, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("crescent", "GetCrescentDate")) {
        VAKDate date =
            VAKDateMake(whole(v.in[2]), whole(v.in[1]), whole(v.in[0]), whole(v.in[3]), whole(v.in[4]), whole(v.in[5]));
        FastAstro().GetCrescentDate(date);
        EXPECT_EQ(v.out, (Numbers{double(date.Years), double(date.Months), double(date.Days), double(date.Hours),
                                  double(date.Minutes), double(date.Seconds)}))
            << v.describe();
    }
}

TEST(CrescentMoment, IsGivenUpWithAMessageWhereNoneCanFollow) {
    // Full moon: the elongation is far beyond the threshold from the first step on.
    std::string message;
    FastAstro engine;
    engine.setLog([&](std::string_view text) { message = text; });
    VAKDate date = VAKDateMake(1, 4, 2026, 12, 0, 0);
    engine.GetCrescentDate(date);
    EXPECT_NE(std::string::npos, message.find("FastAstro -> GetCrescentDate")) << message;
    EXPECT_EQ(2026, date.Years);
    EXPECT_EQ(4, date.Months);
}

TEST(CrescentHijri, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("crescent", "RealGregJulToHicri")) {
        EXPECT_EQ(v.out, yearMonthDay(hijriOf(whole(v.in[0]), whole(v.in[1]), whole(v.in[2]), v.in[3])))
            << v.describe();
    }
    for (const Vector& v : vectorsOf("crescent", "_RealGregJulToHicri")) {
        FastAstro engine = engineInZone(v.in[3]);
        VAKDate hijri;
        engine.RealGregJulToHicriUncorrected(whole(v.in[0]), whole(v.in[1]), whole(v.in[2]), hijri);
        EXPECT_EQ(v.out, yearMonthDay(hijri)) << v.describe();
    }
}

/// The first days of the table's months, from 1 Dhu al-Hijjah 1429 on; the last one only ends the month before.
struct FirstDay {
    int year = 0, month = 0;
    double julianDay = 0.0;
};

std::vector<FirstDay> firstDays() {
    std::ifstream file(test::fixture("hijri_first_days.csv"));
    std::vector<FirstDay> days;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        FirstDay day;
        int index = 0;
        char comma = 0;
        fields >> index >> comma >> day.year >> comma >> day.month >> comma >> day.julianDay;
        days.push_back(day);
    }
    return days;
}

TEST(CrescentHijri, IsTheTablesDateOnEveryDayOfFortyYears) {
    const std::vector<FirstDay> months = firstDays();
    ASSERT_EQ(494u, months.size());
    int days = 0, differences = 0;
    for (std::size_t i = 0; i + 1 < months.size(); ++i) {
        for (double julianDay = months[i].julianDay; julianDay < months[i + 1].julianDay; julianDay += 1.0, ++days) {
            VAKDate civil;
            AstroGlobalFuncs::JulianToCalendar(julianDay, civil, true);
            const int day = whole(julianDay - months[i].julianDay) + 1;
            const VAKDate expected = VAKDateMake(day, months[i].month, months[i].year, 0, 0, 0);
            const VAKDate actual = hijriOf(civil.Days, civil.Months, civil.Years);
            if (sameDay(expected, actual)) continue;
            if (++differences > 5) continue;
            ADD_FAILURE() << civil.Years << "-" << civil.Months << "-" << civil.Days << " is "
                          << testing::PrintToString(yearMonthDay(actual)) << ", expected "
                          << testing::PrintToString(yearMonthDay(expected));
        }
    }
    EXPECT_EQ(14559, days);
    EXPECT_EQ(0, differences);
}

TEST(AllCalendars, AgreeWithTheReference) {
    for (const Vector& v : vectorsOf("crescent", "ConvertAllCalendar")) {
        const AllCalendarInfo c = calendarsOf(whole(v.in[2]), whole(v.in[1]), whole(v.in[0]), v.in[3]);
        const Numbers actual = {double(c.GregorianDay), double(c.GregorianMonth),     double(c.GregorianYear),
                                double(c.DayOfWeek),    double(c.HijriDay),           double(c.HijriMonth),
                                double(c.HijriYear),    c.isSummerSeason ? 1.0 : 0.0, double(c.RumiDay),
                                double(c.RumiMonth),    double(c.RumiYear),           double(c.DayOfSeason)};
        EXPECT_EQ(v.out, actual) << v.describe();
    }
}

TEST(AllCalendars, StartTheSeasonsInMayAndNovember) {
    const AllCalendarInfo summer = calendarsOf(6, 5, 2026), winter = calendarsOf(8, 11, 2026);
    EXPECT_TRUE(summer.isSummerSeason);
    EXPECT_EQ(1, summer.DayOfSeason);
    EXPECT_FALSE(winter.isSummerSeason);
    EXPECT_EQ(1, winter.DayOfSeason);
    EXPECT_TRUE(calendarsOf(7, 11, 2026).isSummerSeason);
    EXPECT_FALSE(calendarsOf(5, 5, 2026).isSummerSeason);
    const AllCalendarInfo newYear = calendarsOf(1, 1, 2026);
    EXPECT_FALSE(newYear.isSummerSeason);
    EXPECT_EQ(55, newYear.DayOfSeason);  // 23 days of November, 31 of December, and this one
}

TEST(AllCalendars, CountTheRumiYearFromMarch) {
    const AllCalendarInfo january = calendarsOf(20, 1, 2026);
    EXPECT_EQ(7, january.RumiDay);
    EXPECT_EQ(11, january.RumiMonth);
    EXPECT_EQ(2026 - 585, january.RumiYear);
    EXPECT_EQ(12, calendarsOf(20, 2, 2026).RumiMonth);
    const AllCalendarInfo march = calendarsOf(14, 3, 2026);
    EXPECT_EQ(1, march.RumiDay);
    EXPECT_EQ(1, march.RumiMonth);
    EXPECT_EQ(2026 - 584, march.RumiYear);
}

}  // namespace
}  // namespace quode
