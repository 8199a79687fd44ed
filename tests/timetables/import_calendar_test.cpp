// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Calendars: which events are prayers, and by which clock.
#include <gtest/gtest.h>

#include <fmt/format.h>

#include "timetables_support.h"

namespace quode::timetables {
namespace {

std::string event(const std::string& title, const std::string& start, const std::string& more = "") {
    static int number = 0;
    return fmt::format("BEGIN:VEVENT\r\nUID:{}\r\nSUMMARY:{}\r\nDTSTART{}\r\n{}END:VEVENT\r\n", ++number, title, start,
                       more);
}

std::string calendarOf(const std::string& events) {
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Mosque//EN\r\n" + events + "END:VCALENDAR\r\n";
}

const std::string maghrib = event("Maghrib", ":20260301T190200");

TEST(ImportOfCalendars, takesTitlesThatAreThePrayer) {
    for (const char* title : {"Fajr", "Fajr Adhan", "FAJR PRAYER", "Sabah namazı", "Fajr begins"}) {
        const Import import = imported(calendarOf(event(title, ":20260301T060700") + maghrib));
        ASSERT_TRUE(import.problems.empty()) << title << import.problems.front().text;
        EXPECT_EQ(minute(import, firstOfMarch2026, 0), 6 * 60 + 7) << title;
    }
}

TEST(ImportOfCalendars, takesTheCongregationAsIqama) {
    for (const char* title : {"Fajr Iqamah", "Fajr Congregation", "Jama'at Fajr"}) {
        const Import import =
            imported(calendarOf(event("Fajr", ":20260301T060700") + event(title, ":20260301T063000") + maghrib));
        ASSERT_TRUE(import.problems.empty()) << title << import.problems.front().text;
        EXPECT_EQ(minute(import, firstOfMarch2026, 0), 6 * 60 + 7) << title;
        EXPECT_EQ(import.table.rows.at(firstOfMarch2026).iqama[0], (Iqama{true, 6 * 60 + 30})) << title;
    }
}

TEST(ImportOfCalendars, namesTitlesThatSayMore) {
    for (const char* title : {"Fajr Iqamah (East Mosque Hall)", "Jama'at Fajr - Main Hall", "Fajr reminder",
                              "Lecture after Fajr", "Fajr ends"}) {
        const Import import = imported(calendarOf(maghrib + event(title, ":20260301T060700")));
        ASSERT_EQ(import.problems.size(), 1U) << title;
        EXPECT_EQ(import.unit, RowUnit::event);
        EXPECT_EQ(import.problems[0].line, 2);
        EXPECT_NE(import.problems[0].text.find("Fajr"), std::string::npos);
        EXPECT_FALSE(import.table.rows.at(firstOfMarch2026).minutes[0].has_value());
    }
    EXPECT_TRUE(imported(calendarOf(maghrib + event("Board meeting", ":20260301T120000"))).problems.empty());
}

TEST(ImportOfCalendars, takesTheTimeByTheZoneOfTheEvent) {
    const Import paris = imported(calendarOf(event("Fajr", ";TZID=Europe/Paris:20260301T040700") + maghrib));
    ASSERT_TRUE(paris.problems.empty()) << paris.problems.front().text;
    EXPECT_EQ(minute(paris, firstOfMarch2026, 0), 6 * 60 + 7);
    const Import own = imported(calendarOf(event("Fajr", ";TZID=Europe/Istanbul:20260301T060700") + maghrib));
    EXPECT_EQ(minute(own, firstOfMarch2026, 0), 6 * 60 + 7);
    const Import unknown = imported(calendarOf(maghrib + event("Fajr", ";TZID=Nowhere:20260301T060700")));
    ASSERT_EQ(unknown.problems.size(), 1U);
    EXPECT_NE(unknown.problems[0].text.find("Nowhere"), std::string::npos);
}

TEST(ImportOfCalendars, leavesCancelledEventsOut) {
    const Import import = imported(calendarOf(event("Fajr", ":20260301T064700", "STATUS:CANCELLED\r\n") +
                                              event("Fajr", ":20260301T060700") + maghrib));
    ASSERT_TRUE(import.problems.empty());
    EXPECT_EQ(minute(import, firstOfMarch2026, 0), 6 * 60 + 7);
}

TEST(ImportOfCalendars, refusesEventsThatRepeat) {
    const Import import =
        imported(calendarOf(maghrib + event("Fajr", ":20260301T060700", "RRULE:FREQ=DAILY;COUNT=30\r\n")));
    ASSERT_EQ(import.problems.size(), 1U);
    EXPECT_NE(import.problems[0].text.find("repeats"), std::string::npos);
    const std::string all = calendarOf(event("Fajr", ":20260301T060700", "RRULE:FREQ=DAILY\r\n"));
    EXPECT_NE(messageOf(all).find("repeats"), std::string::npos);
}

}  // namespace
}  // namespace quode::timetables
