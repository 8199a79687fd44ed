// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// JSON: which of the values of an entry counts.
#include <gtest/gtest.h>

#include "timetables_support.h"

namespace quode::timetables {
namespace {

constexpr int fajrHour = 6 * 60;

/// A day of Istanbul with more fields.
std::string dayWith(const std::string& more) {
    return R"({"date": "2026-03-01", "sunrise": "07:31", "dhuhr": "13:22", "asr": "16:27", "maghrib": "19:02",)" +
           more + "}";
}

Import importedDay(const std::string& more) {
    return imported("[" + dayWith(more) + "]");
}

std::string problemOf(const Import& import) {
    return import.problems.size() == 1 ? import.problems.front().text : "";
}

TEST(ImportOfJson, keepsTheIqamaApartFromThePrayer) {
    for (const char* fields :
         {R"("adhan": {"fajr": "06:07"}, "iqamah": {"fajr": "06:30"})",
          R"("iqama_times": {"fajr": "06:30"}, "adhan": {"fajr": "06:07"})",
          R"("fajr": {"adhan": "06:07", "iqama": "06:30"})", R"("fajr": {"begin": "06:07", "congregation": "06:30"})",
          R"("fajr": {"time": "06:07", "jamaat": {"time": "06:30"}})"}) {
        const Import import = importedDay(fields);
        ASSERT_TRUE(import.problems.empty()) << fields << import.problems.front().text;
        EXPECT_EQ(minute(import, firstOfMarch2026, 0), fajrHour + 7) << fields;
        EXPECT_EQ(import.table.rows.at(firstOfMarch2026).iqama[0], (Iqama{true, fajrHour + 30})) << fields;
    }
}

TEST(ImportOfJson, refusesTwoValuesOfOneTime) {
    for (const char* fields :
         {R"("fajr": "06:07", "fajr": "06:10")", R"("east": {"fajr": "06:07"}, "west": {"fajr": "06:10"})",
          R"("times": {"fajr": "06:07"}, "times": {"fajr": "06:10"})"}) {
        const Import import = importedDay(fields);
        EXPECT_TRUE(import.table.rows.empty());
        EXPECT_NE(problemOf(import).find("06:07"), std::string::npos) << fields;
        EXPECT_NE(problemOf(import).find("06:10"), std::string::npos) << fields;
    }
    EXPECT_TRUE(importedDay(R"("east": {"fajr": "06:07"}, "west": {"fajr": "06:07"})").problems.empty());
}

TEST(ImportOfJson, takesTheGregorianDate) {
    const auto days = [](const std::string& dates) {
        return imported("[{" + dates + R"(, "fajr": "06:07", "dhuhr": "13:22", "maghrib": "19:02"}])");
    };
    for (
        const char* dates :
        {R"("gregorian": {"date": "01-03-2026", "month": {"number": 3}}, "hijri": {"date": "12-09-1447", "day": "12"})",
         R"("date": {"hijri": {"date": "1447-09-12"}, "gregorian": {"date": "2026-03-01"}})",
         R"("hijri_date": "1447-09-12", "date": "2026-03-01")",
         R"("date": "2026-03-01", "gregorian": {"date": "1 March 2026"})"}) {
        const bool needsOrder = std::string(dates).find("01-03") != std::string::npos;
        const Import import =
            needsOrder
                ? imported(std::string("[{") + dates + R"(, "fajr": "06:07", "dhuhr": "13:22", "maghrib": "19:02"}])",
                           {DateOrder::dayFirst, {}})
                : days(dates);
        EXPECT_TRUE(import.problems.empty()) << dates;
        EXPECT_TRUE(import.table.rows.contains(firstOfMarch2026)) << dates;
    }
    const Import open = days(R"("date": "2026-03-01", "tarih": "2026-03-02")");
    EXPECT_NE(problemOf(open).find("date is there twice"), std::string::npos);
}

TEST(ImportOfJson, namesEveryEntryThatIsNotImported) {
    const std::string whole = dayWith(R"("fajr": "06:07")");
    const Import list = imported("[" + whole + R"(, {"date": "2026-03-02", "fajr": "06:05"}, {"dat": "2026-03-03"}])");
    EXPECT_EQ(list.unit, RowUnit::entry);
    ASSERT_EQ(list.problems.size(), 2U);
    EXPECT_EQ(list.problems[0].line, 2);
    EXPECT_EQ(list.problems[1].line, 3);
    const Import keyed = imported(R"({"2026-03-01": )" + whole + R"(, "2026-03-02": {"fajr": "06:05"}})");
    ASSERT_EQ(keyed.problems.size(), 1U);
    EXPECT_EQ(keyed.problems[0].line, 2);
    const Import years =
        imported(R"([{"months": [{"days": [)" + dayWith(R"("fajr": "06:07")") +
                 R"(]}]}, {"months": [{"days": [{"date": "2026-03-02", "fajr": "06:05", "sunrise": "07:29",
        "dhuhr": "13:21", "asr": "16:28", "maghrib": "19:03"}]}]}])");
    EXPECT_TRUE(years.problems.empty());
    EXPECT_EQ(years.table.rows.size(), 2U);
}

TEST(ImportOfJson, refusesWhatIsNoTime) {
    EXPECT_NE(problemOf(importedDay(R"("fajr": ["06:07", "06:10"])")).find("not a time"), std::string::npos);
    EXPECT_NE(problemOf(importedDay(R"("fajr": 6.1)")).find("not a time"), std::string::npos);
    EXPECT_NE(problemOf(importedDay(R"("fajr": null)")).find("empty"), std::string::npos);
}

}  // namespace
}  // namespace quode::timetables
