// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/calendar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/vectors.h"

namespace quode::calendar {
namespace {

using test::Vector;
using test::vectorsOf;

constexpr double nudge = 0.00005 / 86400.0;

int number(const Vector& vector, std::size_t index) {
    return static_cast<int>(vector.in.at(index));
}

VAKDate dateFrom(const std::vector<double>& v) {
    return {int(v.at(0)), int(v.at(1)), int(v.at(2)), int(v.at(3)), int(v.at(4)), int(v.at(5)), 0.0};
}

// The length of a month in the civil calendar, Julian up to 4 October 1582.
int monthLength(int year, int month) {
    constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isGregorian = year > 1582;
    const bool isLeap = year % 4 == 0 && (!isGregorian || year % 100 != 0 || year % 400 == 0);
    return month == 2 && isLeap ? 29 : lengths[month - 1];
}

VAKDate followingDay(VAKDate date) {
    if (date.Years == 1582 && date.Months == 10 && date.Days == 4) return {1582, 10, 15};
    if (++date.Days > monthLength(date.Years, date.Months)) {
        date.Days = 1;
        if (++date.Months > 12) {
            date.Months = 1;
            ++date.Years;
        }
    }
    return date;
}

std::string readable(const VAKDate& d) {
    return std::to_string(d.Years) + "-" + std::to_string(d.Months) + "-" + std::to_string(d.Days);
}

TEST(JulianDay, OfNoonOnTheFirstOfJanuary2000IsTheEpochPlusTheNudge) {
    EXPECT_NEAR(CalculateJulianDay(2000, 1, 1, 12, 0, 0), 2451545.0 + nudge, 1e-9);
}

TEST(JulianDay, KeepsTheSinglePrecisionNudge) {
    EXPECT_EQ(CalculateJulianDay(2000, 1, 1, 0, 0, 0), 2451544.5 + 4.999999873689376e-05 / 86400.0);
}

TEST(JulianDay, RunsOnOverTheDaysThatTheReformSkipped) {
    EXPECT_NEAR(CalculateJulianDay(1582, 10, 4, 0, 0, 0), 2299159.5, 1e-8);
    EXPECT_NEAR(CalculateJulianDay(1582, 10, 15, 0, 0, 0), 2299160.5, 1e-8);
    EXPECT_NEAR(CalculateJulianDay(1582, 10, 5, 0, 0, 0), 2299160.5, 1e-8);
    EXPECT_NEAR(CalculateJulianDay(1582, 10, 14, 0, 0, 0), 2299169.5, 1e-8);
}

TEST(JulianDay, KnowsNoYearZero) {
    // 1 January 4713 BC (year -4713) at noon is day 0 of the count, by its definition.
    EXPECT_NEAR(CalculateJulianDay(-4713, 1, 1, 12, 0, 0), 0.0, 1e-8);
    EXPECT_NEAR(CalculateJulianDay(1, 1, 1, 0, 0, 0) - CalculateJulianDay(-1, 12, 31, 0, 0, 0), 1.0, 1e-8);
}

TEST(JulianDay, MeetsTheReferenceValues) {
    for (const Vector& v : vectorsOf("calendar", "CalculateJulianDay")) {
        const double found =
            CalculateJulianDay(number(v, 0), number(v, 1), number(v, 2), number(v, 3), number(v, 4), number(v, 5));
        EXPECT_DOUBLE_EQ(found, v.out.at(0)) << v.describe();
    }
    for (const Vector& v : vectorsOf("calendar", "GregorianDateToJulian")) {
        EXPECT_DOUBLE_EQ(GregorianDateToJulian(dateFrom(v.in)), v.out.at(0)) << v.describe();
    }
}

TEST(GregorianDate, OfTheEpochIsNoonOnTheFirstOfJanuary2000) {
    EXPECT_EQ(JulianToGregorian(2451545.0), (VAKDate{2000, 1, 1, 12, 0, 0}));
}

TEST(GregorianDate, ChangesCalendarAtTheReform) {
    EXPECT_TRUE(sameDay(JulianToGregorian(2299160.5), {1582, 10, 15}));
    EXPECT_TRUE(sameDay(JulianToGregorian(2299159.5), {1582, 10, 4}));
}

TEST(GregorianDate, HasAYearZeroBeforeTheThirdDayOfYearOne) {
    EXPECT_TRUE(sameDay(JulianToGregorian(1721424.5), {0, 1, 2}));
    EXPECT_TRUE(sameDay(JulianToGregorian(1721425.5), {1, 1, 3}));
}

TEST(GregorianDate, MeetsTheReferenceValues) {
    for (const Vector& v : vectorsOf("calendar", "JulianToGregorian")) {
        EXPECT_EQ(JulianToGregorian(v.in.at(0)), dateFrom(v.out)) << v.describe();
    }
}

TEST(GregorianDate, OfWhatIsNoDayIsMinusOne) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double day : {std::nan(""), infinity, -infinity, 1e300, -1e300}) {
        EXPECT_TRUE(sameDay(JulianToGregorian(day), {-1, -1, -1})) << day;
        EXPECT_TRUE(sameDay(JulianToHijri(day), {-1, -1, -1})) << day;
        EXPECT_EQ(DayOfWeekWithJulianDate(day), -1) << day;
    }
}

TEST(Calendar, GoesToJulianDaysAndBackOnEveryDayOfTenThousandYears) {
    VAKDate date{1, 1, 3};  // the two days before come out in year 0
    double expectedDay = 1721425.5;
    int weekday = 1;  // 3 January of year 1 was a Monday
    while (date.Years <= 9999) {
        const double day = CalculateJulianDay(date.Years, date.Months, date.Days, 0, 0, 0);
        ASSERT_NEAR(day, expectedDay, 1e-8) << readable(date);
        ASSERT_EQ(JulianToGregorian(day), date) << readable(date);
        ASSERT_EQ(DayOfWeekWithYear(date.Years, date.Months, date.Days), weekday) << readable(date);
        date = followingDay(date);
        expectedDay += 1.0;
        weekday = (weekday + 1) % 7;
    }
}

TEST(Calendar, BringsBackEveryMinuteOfADay) {
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const VAKDate date{2024, 3, 31, minute / 60, minute % 60, 0};
        const VAKDate back = JulianToGregorian(GregorianDateToJulian(date));
        EXPECT_TRUE(sameDay(back, date));
        EXPECT_EQ(back.Hours * 60 + back.Minutes, minute);
    }
}

TEST(Weekday, CountsFromSunday) {
    EXPECT_EQ(DayOfWeekWithYear(2024, 3, 31), 0);
    EXPECT_EQ(DayOfWeekWithYear(2024, 4, 6), 6);
    EXPECT_EQ(DayOfWeekWithJulianDate(2451545.0), 6);  // 1 January 2000 was a Saturday
}

TEST(Weekday, MeetsTheReferenceValues) {
    for (const Vector& v : vectorsOf("calendar", "DayOfWeekWithYearMonthDay")) {
        EXPECT_EQ(DayOfWeekWithYear(number(v, 0), number(v, 1), number(v, 2)), v.out.at(0)) << v.describe();
    }
    for (const Vector& v : vectorsOf("calendar", "DayOfWeekWithJulianDate")) {
        EXPECT_EQ(DayOfWeekWithJulianDate(v.in.at(0)), v.out.at(0)) << v.describe();
    }
}

TEST(Record, IsMadeFromDayMonthYear) {
    EXPECT_EQ(VAKDateMake(29, 11, 2008, 1, 2, 3), (VAKDate{2008, 11, 29, 1, 2, 3, 0.0}));
    for (const Vector& v : vectorsOf("calendar", "VAKDateMake")) {
        const VAKDate date =
            VAKDateMake(number(v, 0), number(v, 1), number(v, 2), number(v, 3), number(v, 4), number(v, 5));
        EXPECT_EQ(date, dateFrom(v.out)) << v.describe();
        EXPECT_EQ(date.MSeconds, v.out.at(6)) << v.describe();
    }
}

TEST(AddingMinutes, MovesTheJulianDay) {
    EXPECT_EQ(addMinute(1440, 2451545.0), 2451546.0);
    EXPECT_EQ(addMinute(-720, 2451545.0), 2451544.5);
    for (const Vector& v : vectorsOf("calendar", "addMinute")) {
        EXPECT_DOUBLE_EQ(addMinute(number(v, 0), v.in.at(1)), v.out.at(0)) << v.describe();
    }
}

TEST(FractionalPart, MeetsTheReferenceValues) {
    EXPECT_EQ(frac(-0.25), 0.75);
    for (const Vector& v : vectorsOf("calendar", "frac")) {
        EXPECT_DOUBLE_EQ(frac(v.in.at(0)), v.out.at(0)) << v.describe();
    }
}

TEST(HoursMinutesSeconds, AreTruncatedAndBroughtIntoTheDay) {
    int hour = 0;
    int minute = 0;
    int second = 0;
    ToHMS(hour, minute, second, 1.0 + 59.9999 / 3600.0);
    EXPECT_EQ(second, 59);
    for (const Vector& v : vectorsOf("calendar", "ToHMS")) {
        ToHMS(hour, minute, second, v.in.at(0));
        EXPECT_EQ((std::vector<double>{double(hour), double(minute), double(second)}), v.out) << v.describe();
    }
}

TEST(HoursMinutesSeconds, EndForEveryNumber) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double hours : {std::nan(""), infinity, -infinity, 1e300, -1e300, -1e-300}) {
        int hour = -1;
        int minute = -1;
        int second = -1;
        ToHMS(hour, minute, second, hours);
        EXPECT_TRUE(hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60) << hours;
        EXPECT_TRUE(frac(hours) >= 0.0 && frac(hours) <= 1.0) << hours;
    }
}

}  // namespace
}  // namespace quode::calendar
