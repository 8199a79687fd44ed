// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/import.h"

#include <gtest/gtest.h>

#include "timetables/best_fit.h"
#include "timetables_support.h"

namespace quode::timetables {
namespace {

// Diyanet's times of Istanbul, 1 and 2 March 2026.
TEST(Import, readsTurkishColumns) {
    const Import import = imported(
        "Tarih;Hicri;İmsak;Güneş;Öğle;İkindi;Akşam;Yatsı\n"
        "01.03.2026;12 Ramazan;06:07;07:31;13:22;16:27;19:02;20:21\n"
        "02.03.2026;13 Ramazan;06:05;07:29;13:21;16:28;19:03;20:22\n");
    EXPECT_TRUE(import.problems.empty()) << import.problems.front().text;
    ASSERT_EQ(import.table.rows.size(), 2U);
    EXPECT_EQ(minute(import, firstOfMarch2026, 0), 6 * 60 + 7);
    EXPECT_EQ(minute(import, firstOfMarch2026 + 1, 5), 20 * 60 + 22);
    EXPECT_EQ(import.ignored, std::vector<std::string>{"Hicri"});
}

TEST(Import, readsATwelveHourClockWithoutHalves) {
    const Import import = imported(
        "Date,Day,Fajr,Sunrise,Dhuhr,Asr,Maghrib,Isha\n"
        "1 March 2026,Sun,6:07,7:31,1:22,4:27,7:02,8:21\n"
        "2 March 2026,Mon,6:05,7:29,1:21,4:28,7:03,8:22\n");
    EXPECT_TRUE(import.isTwelveHour);
    EXPECT_TRUE(import.problems.empty()) << import.problems.front().text;
    EXPECT_EQ(minute(import, firstOfMarch2026, 2), 13 * 60 + 22);
    EXPECT_EQ(minute(import, firstOfMarch2026, 5), 20 * 60 + 21);
}

TEST(Import, readsArabicColumnsDigitsAndHalves) {
    const Import import = imported(
        "التاريخ,الفجر,الشروق,الظهر,العصر,المغرب,العشاء\n"
        "٢٠٢٦-٠٣-٠١,٠٦:٠٧ ص,٠٧:٣١ ص,٠١:٢٢ م,٠٤:٢٧ م,٠٧:٠٢ م,٠٨:٢١ م\n");
    ASSERT_TRUE(import.problems.empty()) << import.problems.front().text;
    EXPECT_EQ(minute(import, firstOfMarch2026, 0), 6 * 60 + 7);
    EXPECT_EQ(minute(import, firstOfMarch2026, 3), 16 * 60 + 27);
}

TEST(Import, readsFrenchAndMalayColumns) {
    const Import french = imported(
        "Date\tFajr\tChourouk\tDohr\tAsr\tMaghreb\tIcha\n"
        "1 mars 2026\t06h07\t07h31\t13h22\t16h27\t19h02\t20h21\n");
    EXPECT_TRUE(french.problems.empty()) << french.problems.front().text;
    const Import malay = imported(
        "Tarikh,Imsak,Subuh,Syuruk,Zohor,Asar,Maghrib,Isyak\n"
        "2026-03-01,05:57,06:07,07:31,13:22,16:27,19:02,20:21\n");
    ASSERT_TRUE(malay.problems.empty()) << malay.problems.front().text;
    EXPECT_EQ(minute(malay, firstOfMarch2026, 0), 6 * 60 + 7);  // not Imsak, which is ten minutes before
}

TEST(Import, readsShortMonths) {
    for (const auto& [name, month] : {std::pair("janv.", 1), std::pair("févr.", 2), std::pair("juil.", 7),
                                      std::pair("Okt", 10), std::pair("Dis", 12), std::pair("déc.", 12)}) {
        EXPECT_EQ(monthNamed(name), month) << name;
    }
}

TEST(Import, findsTheOrderOfDates) {
    const std::string head = "Date,Fajr,Dhuhr,Maghrib\n";
    const Import american = imported(head + "03/01/2026,06:07,13:22,19:02\n03/02/2026,06:05,13:21,19:03\n");
    EXPECT_EQ(american.dateOrder, DateOrder::monthFirst);
    EXPECT_TRUE(american.table.rows.contains(firstOfMarch2026 + 1));
    const std::string open = head + "03/01/2026,06:07,13:22,19:02\n";
    EXPECT_NE(messageOf(open).find("--date-order"), std::string::npos);
    EXPECT_TRUE(imported(open, {DateOrder::monthFirst, {}}).problems.empty());
}

TEST(Import, needsAYear) {
    const std::string content = "Date,Fajr,Dhuhr,Maghrib\n1 March,06:07,13:22,19:02\n";
    const Import without = imported(content);
    ASSERT_EQ(without.problems.size(), 1U);
    EXPECT_NE(without.problems[0].text.find("--year"), std::string::npos);
    EXPECT_TRUE(imported(content, {DateOrder::unknown, 2026}).problems.empty());
}

TEST(Import, namesDamagedRowsByLine) {
    const Import import = imported(
        "date,fajr,sunrise,dhuhr,asr,maghrib,isha\n"
        "2026-03-01,06:07,07:31,13:22,16:27,19:02,20:21\n"
        "2026-03-02,06:05,07:29,13:21,16:28,19:03\n"          // a cell is missing
        "2026-03-03,06:04,07:28,1x:21,16:28,19:04,20:23\n"    // no time
        "2026-03-04,06:02,07:26,13:21,16:29,18:05,20:24\n"    // an hour early
        "2026-02-30,06:02,07:26,13:21,16:29,19:05,20:24\n"    // no date
        "2026-03-01,06:07,07:31,13:22,16:27,19:02,20:21\n"    // twice
        "2026-03-07,07:24,06:00,13:20,16:31,19:08,20:27\n");  // columns swapped
    EXPECT_EQ(import.table.rows.size(), 1U);
    std::vector<int> lines;
    for (const ImportProblem& problem : import.problems) lines.push_back(problem.line);
    EXPECT_EQ(lines, (std::vector<int>{3, 4, 5, 6, 7, 8}));
}

TEST(Import, namesATimeThatStandsOut) {
    std::string content = "date,fajr,sunrise,dhuhr,asr,maghrib,isha\n";
    content += "2026-03-01,06:07,07:31,13:22,16:27,19:02,20:21\n2026-03-02,06:05,07:29,13:21,16:28,19:03,20:22\n";
    content += "2026-03-03,06:04,07:28,13:21,16:48,19:04,20:23\n";  // 16:28
    content += "2026-03-04,06:02,07:26,13:21,16:29,19:05,20:24\n2026-03-05,06:00,07:25,13:21,16:30,19:06,20:25\n";
    const Import import = imported(content);
    ASSERT_EQ(import.problems.size(), 1U);
    EXPECT_EQ(import.problems[0].line, 4);
}

TEST(Import, takesIqamaMinutesAndFixedTimes) {
    const Import import = imported(
        "date,fajr,fajr iqama,dhuhr,dhuhr iqama,maghrib,maghrib iqama\n"
        "2026-03-01,6:07 am,20,1:22 pm,2:00,7:02 pm,+5\n");
    ASSERT_TRUE(import.problems.empty()) << import.problems.front().text;
    const TimetableRow& row = import.table.rows.at(firstOfMarch2026);
    EXPECT_EQ(row.iqama[0], (Iqama{false, 20}));
    EXPECT_EQ(row.iqama[2], (Iqama{true, 14 * 60}));
    EXPECT_EQ(row.iqama[4], (Iqama{false, 5}));
}

TEST(Import, readsJsonAndCalendars) {
    const Import json = imported(R"({"days": [{"date": "2026-03-01", "prayers": {"fajr": {"time": "06:07"},
        "dhuhr": {"time": "13:22"}, "maghrib": {"time": "19:02"}}}]})");
    EXPECT_EQ(minute(json, firstOfMarch2026, 4), 19 * 60 + 2);
    const Import calendar = imported(
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Mosque//EN\r\n"
        "BEGIN:VEVENT\r\nUID:1\r\nSUMMARY:Fajr - Mosque\r\nDTSTART:20260301T060700\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:2\r\nSUMMARY:Maghrib\r\nDTSTART:20260301T190200\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    EXPECT_EQ(minute(calendar, firstOfMarch2026, 0), 6 * 60 + 7);
    EXPECT_EQ(minute(calendar, firstOfMarch2026, 4), 19 * 60 + 2);
}

TEST(Import, roundsTheSecondsOfACalendarToo) {
    const Import calendar = imported(
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Mosque//EN\r\n"
        "BEGIN:VEVENT\r\nUID:1\r\nSUMMARY:Fajr\r\nDTSTART:20260301T060640\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:2\r\nSUMMARY:Maghrib\r\nDTSTART:20260301T160220Z\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    EXPECT_EQ(minute(calendar, firstOfMarch2026, 0), 6 * 60 + 7);
    EXPECT_EQ(minute(calendar, firstOfMarch2026, 4), 19 * 60 + 2);
    EXPECT_TRUE(calendar.hasSeconds);
}

TEST(Import, takesUniversalTimesByTheClockOfThePlace) {
    const Import calendar = imported(
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Mosque//EN\r\n"
        "BEGIN:VEVENT\r\nUID:1\r\nSUMMARY:Fajr\r\nDTSTART:20260301T030700Z\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:2\r\nSUMMARY:Maghrib\r\nDTSTART:20260301T160200Z\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:3\r\nSUMMARY:Isha\r\nDTSTART:20260301T172000Z\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    EXPECT_TRUE(calendar.problems.empty());
    EXPECT_EQ(minute(calendar, firstOfMarch2026, 0), 6 * 60 + 7);
    EXPECT_EQ(minute(calendar, firstOfMarch2026, 4), 19 * 60 + 2);
    EXPECT_EQ(minute(calendar, firstOfMarch2026, 5), 20 * 60 + 20);
}

TEST(Import, refusesWhatIsNoTimetable) {
    EXPECT_NE(messageOf("").find("empty"), std::string::npos);
    EXPECT_NE(messageOf("hello\nworld\n").find("names the columns"), std::string::npos);
    EXPECT_NE(messageOf("{\"a\": 1").find("JSON"), std::string::npos);
    EXPECT_NE(messageOf("\xff\xfe").find("UTF-16"), std::string::npos);
    EXPECT_NE(messageOf(std::string("a\0b", 3)).find("UTF-8"), std::string::npos);
    EXPECT_NE(messageOf("date,fajr,fajr,dhuhr\n").find("same"), std::string::npos);
    EXPECT_NE(messageOf("fajr,dhuhr,maghrib\n").find("date"), std::string::npos);
}

TEST(BestFit, recognisesTheMethodOfATable) {
    const Timetable table = tableBy("diyanet", 2026, 3);
    const std::vector<Fit> fits = fitsOf(table, istanbul());
    EXPECT_EQ(fits.front().key, "diyanet");
    EXPECT_EQ(fits.front().percentWithinOne(), 100.0);
    EXPECT_LT(fits.back().percentWithinOne(), 60.0);
}

}  // namespace
}  // namespace quode::timetables
