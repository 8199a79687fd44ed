// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Both change days of every zone with summer time, as the engine counts them, against the rules of the zone data. The
// days are worked out here from the rule's text by plain calendar arithmetic, apart from the code that made the
// database.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <tuple>

#include "data/CityDatabase.h"

namespace quode {
namespace {

struct Change {
    int month = 0, week = 0, weekday = 0, hour = 2;
};

struct SourceZone {
    double gmt = 0.0;
    bool reversed = false;  // the second time of the rule is winter
    Change start, stop;
};

bool isLeap(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int daysIn(int year, int month) {
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeap(year) ? 29 : days[month - 1];
}

int dayOfYear(int year, int month, int day) {
    for (int before = 1; before < month; ++before) day += daysIn(year, before);
    return day;
}

// 0 = Sunday; 1 January 2023 was one.
int weekdayOf(int year, int month, int day) {
    int days = dayOfYear(year, month, day) - 1;
    for (int y = 2023; y < year; ++y) days += isLeap(y) ? 366 : 365;
    return days % 7;
}

// Day of the year on which the new time holds first. A change on another day than the one it is named for counts from
// the first noon with the new time.
int changeDay(const Change& change, int year) {
    int day = 1;
    while (weekdayOf(year, change.month, day) != change.weekday) ++day;
    day += 7 * (change.week - 1);
    while (day > daysIn(year, change.month)) day -= 7;
    int shift = 0;
    if (change.hour >= 24) shift = (change.hour + 11) / 24;
    return dayOfYear(year, change.month, day) + shift;
}

Change readChange(const std::string& text) {
    Change change;
    std::sscanf(text.c_str(), "M%d.%d.%d/%d", &change.month, &change.week, &change.weekday, &change.hour);
    return change;
}

// The zones with summer time, by name.
std::map<std::string, SourceZone> sourceZones() {
    std::ifstream file(std::string(QUODE_PLACE_DATA) + "/zones.tsv");
    std::map<std::string, SourceZone> zones;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream cells(line);
        std::string name, offset, rule, hasSummer, start, stop;
        std::getline(cells, name, '\t');
        std::getline(cells, offset, '\t');
        std::getline(cells, rule, '\t');
        std::getline(cells, hasSummer, '\t');
        if (hasSummer != "1") continue;
        std::istringstream parts(rule);
        std::getline(parts, start, ',');
        std::getline(parts, start, ',');
        std::getline(parts, stop, ',');
        SourceZone zone{std::stod(offset), name == "Europe/Dublin", readChange(start), readChange(stop)};
        if (zone.reversed) std::swap(zone.start, zone.stop);
        zones[name] = zone;
    }
    return zones;
}

// Day of the year on which the engine's summer time begins and ends.
std::pair<int, int> storedDays(const ZoneRule& rule, int year) {
    std::pair<int, int> days;
    const std::chrono::sys_days newYear(std::chrono::year(year) / 1 / 1);
    for (int day = 1; day <= 365 + (isLeap(year) ? 1 : 0); ++day) {
        const auto date = newYear + std::chrono::days(day - 1);
        const bool before = isSummerTime(rule, date - std::chrono::days(1));
        const bool now = isSummerTime(rule, date);
        if (now && !before) days.first = day;
        if (before && !now) days.second = day;
    }
    return days;
}

using Exception = std::tuple<std::string, int, bool, int>;  // zone, year, start or stop, days off

// Rules that name the day after, or two days after, a weekday of the month can only be stored as a weekday of the
// month. In these years the two fall a week apart.
const std::set<Exception> aWeekOff = {
    {"Africa/Cairo", 2030, false, -7},    {"Asia/Jerusalem", 2030, true, -7},    {"Asia/Gaza", 2026, false, 7},
    {"Asia/Gaza", 2029, true, 7},         {"Asia/Gaza", 2035, true, 7},          {"Asia/Hebron", 2026, false, 7},
    {"Asia/Hebron", 2029, true, 7},       {"Asia/Hebron", 2035, true, 7},        {"America/Santiago", 2029, false, -7},
    {"America/Santiago", 2030, true, -7}, {"America/Santiago", 2035, false, -7},
};

TEST(SummerTime, BothChangeDaysOfEveryZoneFrom2026To2036) {
    const CityDatabase database(QUODE_CITY_DATABASE);
    const std::map<std::string, SourceZone> source = sourceZones();
    ASSERT_EQ(source.size(), 115U);
    std::set<Exception> differences;
    for (const StoredZone& zone : database.zones()) {
        const auto found = source.find(zone.name);
        ASSERT_EQ(zone.rule.dst, found != source.end()) << zone.name;
        if (!zone.rule.dst) continue;
        EXPECT_DOUBLE_EQ(zone.rule.gmt, found->second.gmt) << zone.name;
        EXPECT_EQ(zone.rule.hour, 1) << zone.name;
        for (int year = 2026; year <= 2036; ++year) {
            const auto [start, stop] = storedDays(zone.rule, year);
            const int startOff = start - changeDay(found->second.start, year);
            const int stopOff = stop - changeDay(found->second.stop, year);
            if (startOff != 0) differences.insert({zone.name, year, true, startOff});
            if (stopOff != 0) differences.insert({zone.name, year, false, stopOff});
        }
    }
    EXPECT_EQ(differences, aWeekOff);
}

TEST(SummerTime, KnownChangeDays) {
    using namespace std::chrono;
    const CityDatabase database(QUODE_CITY_DATABASE);
    const struct {
        const char* zone;
        year_month_day start, stop;
    } cases[] = {
        {"Europe/London", 2027y / March / 28, 2027y / October / 31},
        {"Europe/Dublin", 2027y / March / 28, 2027y / October / 31},
        {"America/New_York", 2027y / March / 14, 2027y / November / 7},
        {"America/Havana", 2027y / March / 14, 2027y / November / 7},
        {"Australia/Sydney", 2027y / October / 3, 2027y / April / 4},
        {"Pacific/Auckland", 2027y / September / 26, 2027y / April / 4},
        {"Africa/Cairo", 2027y / April / 30, 2027y / October / 29},
        {"Asia/Jerusalem", 2027y / March / 26, 2027y / October / 31},
        {"Asia/Gaza", 2027y / March / 27, 2027y / October / 30},
        {"America/Santiago", 2027y / September / 5, 2027y / April / 4},
        {"America/Nuuk", 2027y / March / 28, 2027y / October / 31},
        {"Asia/Beirut", 2027y / March / 28, 2027y / October / 31},
    };
    for (const auto& [zone, start, stop] : cases) {
        const ZoneRule rule = database.largestCityOfZone(zone)->rule;
        EXPECT_FALSE(isSummerTime(rule, sys_days(start) - days(1))) << zone;
        EXPECT_TRUE(isSummerTime(rule, start)) << zone;
        EXPECT_TRUE(isSummerTime(rule, sys_days(stop) - days(1))) << zone;
        EXPECT_FALSE(isSummerTime(rule, stop)) << zone;
    }
}

}  // namespace
}  // namespace quode
