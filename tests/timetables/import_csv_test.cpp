// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// CSV: the line that names the columns, and the dates.
#include <gtest/gtest.h>

#include <string_view>

#include "timetables_support.h"

namespace quode::timetables {
namespace {

using namespace std::string_view_literals;

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

TEST(ImportOfCsv, understandsNamesWithLineBreaks) {
    const Import import = imported(
        "March 2026\n\"Date\",\"Fajr\nBegins\",\"Sun-\r\nrise\",\"Zuhr\nBegins\",\"Maghrib\n\n(sunset)\"\n"
        "2026-03-01,06:07,07:31,13:22,19:02\n2026-03-02,06:05,x,13:21,19:03\n");
    EXPECT_EQ(minute(import, firstOfMarch2026, 0), 6 * 60 + 7);
    EXPECT_EQ(minute(import, firstOfMarch2026, 2), 13 * 60 + 22);
    for (const auto& [heading, column] : import.columns) EXPECT_EQ(heading.find('\n'), std::string::npos) << heading;
    EXPECT_FALSE(messageOf("Date,Fajr,Dhuhr,Maghrib,\"Remark\n2026-03-01,06:07,13:22,19:02,\n").empty());
}

TEST(ImportOfCsv, roundsSecondsToTheNearestMinute) {
    const std::string head = "date,fajr,dhuhr,maghrib,isha\n";
    const Import import = imported(head + "2026-03-01,06:07:29,13:21:30,7:01:59 PM,20:20:00\n");
    ASSERT_TRUE(import.problems.empty()) << import.problems.front().text;
    EXPECT_EQ(minute(import, firstOfMarch2026, 0), 6 * 60 + 7);
    EXPECT_EQ(minute(import, firstOfMarch2026, 2), 13 * 60 + 22);
    EXPECT_EQ(minute(import, firstOfMarch2026, 4), 19 * 60 + 2);
    EXPECT_TRUE(import.hasSeconds);
    EXPECT_FALSE(imported(head + "2026-03-01,06:07:00,13:22:00,19:02:00,20:20:00\n").hasSeconds);
    const Import noon = imported("date,fajr,dhuhr,maghrib\n2026-10-30,06:07:10,11:59:40 AM,18:02:10\n");
    EXPECT_EQ(noon.problems.size(), 1U);  // 12:00 is no Dhuhr of Istanbul's, and not midnight
    EXPECT_NE(noon.problems.front().text.find("12:00"), std::string::npos) << noon.problems.front().text;
    for (const char* time : {"06:07:60", "06:07:5", "06:07:30.5", "24:00:10"}) {
        EXPECT_EQ(imported(head + "2026-03-01," + time + ",13:22,19:02,20:20\n").problems.size(), 1U) << time;
    }
}

TEST(ImportOfCsv, readsUtf16WithItsMark) {
    for (const bool isLittle : {true, false}) {
        std::string bytes = isLittle ? "\xff\xfe" : "\xfe\xff";
        for (const char16_t letter : u"tarih;imsak;güneş;akşam\n2026-03-01;06:07;07:31;19:02\n"sv) {
            const char low = static_cast<char>(letter & 0xffU), high = static_cast<char>(letter >> 8U);
            bytes += isLittle ? low : high;
            bytes += isLittle ? high : low;
        }
        const Import import = imported(bytes);
        EXPECT_EQ(minute(import, firstOfMarch2026, 1), 7 * 60 + 31);
        EXPECT_EQ(minute(import, firstOfMarch2026, 4), 19 * 60 + 2);
        EXPECT_EQ(import.columns.size(), 4U);
        EXPECT_NE(messageOf(bytes + "x").find("damaged UTF-16"), std::string::npos);
    }
}

TEST(ImportOfCsv, namesTheEncodingThatItRefuses) {
    // "Güneş" and "Akşam" in Windows-1254.
    const std::string message = messageOf(
        "Tarih;\xddmsak;G\xfcne\xfe;Ak\xfe"
        "am\n2026-03-01;06:07;07:31;19:02\n");
    EXPECT_NE(message.find("Windows-1254"), std::string::npos) << message;
    EXPECT_NE(message.find("CSV UTF-8"), std::string::npos) << message;
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
