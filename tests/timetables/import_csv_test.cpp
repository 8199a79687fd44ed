// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// CSV: the line that names the columns, and the dates.
#include <gtest/gtest.h>

#include "timetables_support.h"

namespace quode::timetables {
namespace {

constexpr const char* firstDay = "2026-03-01,06:07,07:31,13:22,16:27,19:02,20:21\n";
constexpr const char* secondDay = "2026-03-02,06:05,07:29,13:21,16:28,19:03,20:22\n";
constexpr const char* columns = "date,fajr,sunrise,dhuhr,asr,maghrib,isha\n";

TEST(ImportOfCsv, namesTheDaysAboveItsColumns) {
    const Import damaged =
        imported(std::string("date,fqjr,sunrise,dhuhr,asr,maghrib,isha\n") + firstDay + columns + secondDay);
    ASSERT_EQ(damaged.problems.size(), 1U);
    EXPECT_EQ(damaged.problems[0].line, 2);
    const Import above =
        imported(std::string("Mosque timetable\nMarch 2026,updated 12:30\n") + firstDay + columns + secondDay);
    ASSERT_EQ(above.problems.size(), 1U);
    EXPECT_EQ(above.problems[0].line, 3);
}

TEST(ImportOfCsv, understandsASecondLineOfColumns) {
    const Import import = imported(
        "Date,Fajr,,Sunrise,Dhuhr,,Maghrib\n"
        ",Iqama,Adhan,,Begins,Jama'ah,\n"
        "2026-03-01,06:30,06:07,07:31,13:22,13:45,19:02\n");
    ASSERT_TRUE(import.problems.empty()) << import.problems.front().text;
    EXPECT_EQ(minute(import, firstOfMarch2026, 0), 6 * 60 + 7);
    EXPECT_EQ(minute(import, firstOfMarch2026, 2), 13 * 60 + 22);
    EXPECT_EQ(import.table.rows.at(firstOfMarch2026).iqama[0], (Iqama{true, 6 * 60 + 30}));
}

TEST(ImportOfCsv, refusesTimesBelowNoName) {
    const std::string message =
        messageOf("Date,Fajr,,Sunrise,Dhuhr,Maghrib\n2026-03-01,06:30,06:07,07:31,13:22,19:02\n");
    EXPECT_NE(message.find("Column 3"), std::string::npos) << message;
    EXPECT_TRUE(imported("Date,Fajr,,Dhuhr,Maghrib\n2026-03-01,06:07,Sun,13:22,19:02\n").problems.empty());
}

TEST(ImportOfCsv, findsTheYearOfTwoDigitsByTheDaysThatFollow) {
    const std::string head = "date,fajr,dhuhr,maghrib\n", first = ",06:07,13:22,19:02\n",
                      second = ",06:05,13:21,19:03\n";
    for (const auto& [one, two] : {std::pair("26-03-01", "26-03-02"), std::pair("01.03.26", "02.03.26"),
                                   std::pair("03/01/26", "03/02/26"), std::pair("1 Mar 26", "2 Mar 26")}) {
        const Import import = imported(head + one + first + two + second);
        EXPECT_TRUE(import.problems.empty()) << one;
        EXPECT_TRUE(import.table.rows.contains(firstOfMarch2026)) << one;
        EXPECT_TRUE(import.table.rows.contains(firstOfMarch2026 + 1)) << one;
    }
    EXPECT_NE(messageOf(head + "26-07-20" + first).find("two digits"), std::string::npos);
    EXPECT_NE(messageOf(head + "26 Mar 01" + first).find("two digits"), std::string::npos);
    EXPECT_TRUE(imported(head + "01.03.26" + first, {DateOrder::dayFirst, {}}).problems.empty());
}

}  // namespace
}  // namespace quode::timetables
