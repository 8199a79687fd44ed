// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "common/calendar.h"
#include "common/hijri_table.h"
#include "support/fixtures.h"
#include "support/vectors.h"

namespace quode::calendar {
namespace {

using test::Vector;
using test::vectorsOf;

struct TableRow {
    int index = 0;
    int year = 0;
    int month = 0;
    double julianDay = 0.0;
};

std::vector<TableRow> tableOfTheFixture() {
    std::ifstream file(test::fixture("hijri_first_days.csv"));
    std::string line;
    std::getline(file, line);
    std::vector<TableRow> rows;
    while (std::getline(file, line)) {
        TableRow row;
        char comma = 0;
        std::istringstream(line) >> row.index >> comma >> row.year >> comma >> row.month >> comma >> row.julianDay;
        rows.push_back(row);
    }
    return rows;
}

VAKDate hijri(int year, int month, int day) {
    return {year, month, day};
}

double firstDayOfYear(int year) {
    return GetHijriFirstDayOfTheMonthAsJulianDate(12 * (year - 1430) + 1);
}

TEST(HijriTable, HoldsEveryEntryOfItsSource) {
    const std::vector<TableRow> rows = tableOfTheFixture();
    ASSERT_EQ(rows.size(), HijriFirstDayOfMonths.size());
    for (const TableRow& row : rows) {
        EXPECT_EQ(row.index, 12 * (row.year - 1430) + row.month);
        EXPECT_EQ(GetHijriFirstDayOfTheMonthAsJulianDate(row.index), row.julianDay) << row.index;
    }
}

TEST(HijriTable, BeginsAndEndsWithTheKnownDays) {
    EXPECT_EQ(HijriFirstDayOfMonths.front(), 2454799.5);
    EXPECT_EQ(HijriFirstDayOfMonths.back(), 2469358.5);
    EXPECT_TRUE(sameDay(JulianToGregorian(2454799.5), {2008, 11, 29}));
    EXPECT_TRUE(sameDay(JulianToGregorian(2469358.5), {2048, 10, 9}));
}

TEST(HijriTable, BeginsEachYearOnTheKnownDay) {
    const std::vector<double> starts{2454829.5, 2455183.5, 2455537.5, 2455891.5, 2456246.5, 2456601.5, 2456955.5,
                                     2457309.5, 2457663.5, 2458017.5, 2458372.5, 2458726.5, 2459081.5, 2459436.5,
                                     2459790.5, 2460144.5, 2460497.5, 2460852.5, 2461207.5, 2461562.5, 2461916.5,
                                     2462271.5, 2462625.5, 2462979.5, 2463333.5, 2463688.5, 2464042.5, 2464397.5,
                                     2464751.5, 2465105.5, 2465459.5, 2465814.5, 2466168.5, 2466523.5, 2466877.5,
                                     2467232.5, 2467586.5, 2467940.5, 2468294.5, 2468648.5, 2469003.5, 2469358.5};
    for (std::size_t i = 0; i < starts.size(); ++i) {
        EXPECT_EQ(firstDayOfYear(1430 + static_cast<int>(i)), starts[i]) << 1430 + i;
    }
}

TEST(HijriTable, HasThreeMonthsOfUnusualLength) {
    const auto length = [](int year, int month) {
        const int index = 12 * (year - 1430) + month;
        return GetHijriFirstDayOfTheMonthAsJulianDate(index + 1) - GetHijriFirstDayOfTheMonthAsJulianDate(index);
    };
    EXPECT_EQ(length(1445, 12), 28.0);
    EXPECT_EQ(length(1446, 1), 31.0);
    EXPECT_EQ(length(1462, 6), 31.0);
    int unusual = 0;
    for (std::size_t i = 0; i + 1 < HijriFirstDayOfMonths.size(); ++i) {
        const double days = HijriFirstDayOfMonths[i + 1] - HijriFirstDayOfMonths[i];
        if (days != 29.0 && days != 30.0) ++unusual;
    }
    EXPECT_EQ(unusual, 3);
}

TEST(HijriTable, IsNotReadOutsideItsEnds) {
    for (const int index : {-1, 494, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(GetHijriFirstDayOfTheMonthAsJulianDate(index), -1.0) << index;
    }
}

TEST(HijriDate, OfTheTurnsOfTheYears1445And1446) {
    EXPECT_EQ(JulianToHijri(2460144.5), hijri(1445, 1, 1));
    EXPECT_EQ(JulianToHijri(2460496.5), hijri(1445, 12, 28));
    EXPECT_EQ(JulianToHijri(2460497.5), hijri(1446, 1, 1));
    EXPECT_EQ(JulianToHijri(2460527.5), hijri(1446, 1, 31));
}

TEST(HijriDate, KeepsTheTimeOfDay) {
    EXPECT_EQ(JulianToHijri(CalculateJulianDay(2023, 7, 19, 21, 30, 15)), (VAKDate{1445, 1, 1, 21, 30, 15}));
}

TEST(HijriDate, GoesToJulianDaysAndBackOnEveryDayOfTheTable) {
    int year = 1429;
    int month = 12;
    int day = 1;
    for (double julianDay = 2454799.5; julianDay < 2469358.5; julianDay += 1.0) {
        const std::size_t next = static_cast<std::size_t>(12 * (year - 1430) + month + 1);
        ASSERT_EQ(JulianToHijri(julianDay), hijri(year, month, day)) << julianDay;
        ASSERT_NEAR(HijriDateToJulian(hijri(year, month, day)), julianDay, 1e-8);
        ASSERT_EQ(DayOfHijriWeekWithYear(year, month, day), DayOfWeekWithJulianDate(julianDay)) << julianDay;
        ++day;
        if (julianDay + 1.0 == HijriFirstDayOfMonths[next]) {
            day = 1;
            month = month % 12 + 1;
            if (month == 1) ++year;
        }
    }
    EXPECT_EQ(hijri(year, month, day), hijri(1471, 1, 1));
}

TEST(HijriDate, OutsideTheTableIsMinusOne) {
    for (const double day : {2454798.5, 2454799.4, 2469358.5, 2469400.5, 0.0, -5.0, 5e6}) {
        EXPECT_TRUE(sameDay(JulianToHijri(day), {-1, -1, -1})) << day;
    }
    EXPECT_TRUE(sameDay(JulianToHijri(2469358.4), {1470, 12, 30}));
    EXPECT_EQ(HijriDateToJulian(hijri(1429, 11, 1)), -1.0);
    EXPECT_EQ(HijriDateToJulian(hijri(1471, 2, 1)), -1.0);
    EXPECT_EQ(HijriDateToJulian(hijri(2147483647, 12, 1)), -1.0);
    EXPECT_EQ(HijriDateToJulian(hijri(-2147483647 - 1, 1, 1)), -1.0);
    EXPECT_EQ(DayOfHijriWeekWithYear(1400, 1, 1), -1);
}

TEST(HijriDate, OfTheLastMonthIsConvertedToAJulianDay) {
    EXPECT_NEAR(HijriDateToJulian(hijri(1471, 1, 5)), 2469362.5, 1e-8);
}

TEST(HijriDate, MeetsTheReferenceValues) {
    for (const Vector& v : vectorsOf("calendar", "JulianToHijri")) {
        const VAKDate date = JulianToHijri(v.in.at(0));
        const std::vector<double> found{double(date.Years), double(date.Months),  double(date.Days),
                                        double(date.Hours), double(date.Minutes), double(date.Seconds)};
        EXPECT_EQ(found, v.out) << v.describe();
    }
    for (const Vector& v : vectorsOf("calendar", "HijriDateToJulian")) {
        const VAKDate date{int(v.in[0]), int(v.in[1]), int(v.in[2]), int(v.in[3]), int(v.in[4]), int(v.in[5])};
        EXPECT_DOUBLE_EQ(HijriDateToJulian(date), v.out.at(0)) << v.describe();
    }
    for (const Vector& v : vectorsOf("calendar", "GetHijriFirstDayOfTheMonthAsJulianDate")) {
        EXPECT_EQ(GetHijriFirstDayOfTheMonthAsJulianDate(int(v.in.at(0))), v.out.at(0)) << v.describe();
    }
    for (const Vector& v : vectorsOf("calendar", "DayOfHijriWeekWithYearMonthDay")) {
        EXPECT_EQ(DayOfHijriWeekWithYear(int(v.in[0]), int(v.in[1]), int(v.in[2])), v.out.at(0)) << v.describe();
    }
}

}  // namespace
}  // namespace quode::calendar
