// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Neighbouring days that are wrong together stand out; those of good tables never do.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>

#include "data/system_zone.h"
#include "published_rows.h"
#include "support/fixtures.h"
#include "timetables/smoothness.h"
#include "timetables_support.h"

namespace quode::timetables {
namespace {

Site siteAt(double latitude, double longitude) {
    Site site;
    site.latitude = latitude;
    site.longitude = longitude;
    site.rule.gmt = std::round(longitude / 15.0);
    return site;
}

std::vector<int> daysThatStandOut(const Timetable& table, const Site& site, int prayer) {
    SunCheck check(site);
    std::vector<int> days;
    for (const Outlier& outlier : outliersOf(table, check)) {
        EXPECT_EQ(outlier.prayer, prayer);
        days.push_back(outlier.day - firstOfMarch2026);
    }
    std::ranges::sort(days);
    return days;
}

TEST(Smoothness, findsNeighbouringDaysThatAreWrongTogether) {
    struct Case {
        int first, count, minutes;
    };
    for (const Case& damage : {Case{10, 2, 30}, Case{12, 7, 40}, Case{0, 2, 30}, Case{29, 2, -30}, Case{8, 3, -10}}) {
        for (const int prayer : {0, 1, 2, 3, 4, 5}) {
            Timetable table = tableBy("diyanet", 2026, 3);
            std::vector<int> wrong;
            for (int day = damage.first; day < damage.first + damage.count; ++day) {
                *table.rows.at(firstOfMarch2026 + day).minutes[std::size_t(prayer)] += damage.minutes;
                wrong.push_back(day);
            }
            EXPECT_EQ(daysThatStandOut(table, istanbul(), prayer), wrong)
                << prayer << " from " << damage.first << " by " << damage.minutes;
        }
    }
}

TEST(Smoothness, namesASingleDayThatIsFarFromItsNeighbours) {
    constexpr int wrongDay = 12;
    for (const char* method : {"diyanet", "mwl", "umm-al-qura"}) {
        for (const int prayer : {0, 1, 2, 3, 4, 5}) {
            for (const int minutes : {-60, -10, -7, 7, 10, 60}) {
                Timetable table = tableBy(method, 2026, 3);
                *table.rows.at(firstOfMarch2026 + wrongDay).minutes[std::size_t(prayer)] += minutes;
                EXPECT_EQ(daysThatStandOut(table, istanbul(), prayer), std::vector{wrongDay})
                    << method << ' ' << prayer << ' ' << minutes;
            }
        }
    }
}

TEST(Smoothness, acceptsASingleDayAMinuteBesideItsNeighbours) {
    for (const int prayer : {0, 1, 2, 3, 4, 5}) {
        Timetable table = tableBy("diyanet", 2026, 3);
        ++*table.rows.at(firstOfMarch2026 + 12).minutes[std::size_t(prayer)];
        EXPECT_TRUE(daysThatStandOut(table, istanbul(), prayer).empty()) << prayer;
    }
}

TEST(Smoothness, letsATableChangeItsRuleOnce) {
    Timetable table = tableBy("diyanet", 2026, 3);
    for (int day = 19; day < 31; ++day) *table.rows.at(firstOfMarch2026 + day).minutes[5] += 30;
    EXPECT_TRUE(daysThatStandOut(table, istanbul(), 5).empty());
}

TEST(Smoothness, findsNothingInPublishedTables) {
    std::map<std::string, std::pair<Site, Timetable>> tables;
    for (const auto& published : conventions::readPublishedRows(test::fixture("conventions/published_rows.csv"))) {
        auto& [site, table] = tables[published.authority + ", " + published.place];
        site = siteAt(published.latitude, published.longitude);
        ZoneKnowledge knowledge;
        knowledge.zone = SystemZone::load("/usr/share/zoneinfo", published.zone);
        site.known = std::make_shared<ZoneKnowledge>(knowledge);
        TimetableRow row;
        row.minutes = published.minutes;
        const VAKDate date = VAKDateMake(published.day, published.month, published.year, 0, 0, 0);
        table.rows[dayNumber(date)] = row;
    }
    EXPECT_GT(tables.size(), 10U);
    for (const auto& [name, published] : tables) {
        SunCheck check(published.first);
        EXPECT_TRUE(outliersOf(published.second, check).empty()) << name;
    }
}

TEST(Smoothness, findsNothingInTheTablesOfMethods) {
    constexpr int firstOf2026 = 20454;
    const std::pair<double, double> places[] = {{21.42, 39.83}, {-33.9, 18.4}, {48.58, 7.75}, {59.9, 10.75}};
    for (const auto& [latitude, longitude] : places) {
        const Site site = siteAt(latitude, longitude);
        SunCheck check(site);
        for (const char* method : {"diyanet", "umm-al-qura", "moonsighting", "isna"}) {
            Timetable table = tableOf(site, method, firstOf2026, 365);
            const auto expectNothing = [&](const char* form) {
                for (const Outlier& outlier : outliersOf(table, check)) {
                    ADD_FAILURE() << method << " at " << latitude << form << ": prayer " << outlier.prayer << " of day "
                                  << outlier.day - firstOf2026 << " by " << outlier.distance;
                }
            };
            expectNothing("");
            for (auto& [day, row] : table.rows) {
                for (auto& minute : row.minutes) {
                    if (minute) *minute = (*minute + 2) / 5 * 5;
                }
            }
            expectNothing(" in steps of five");
        }
    }
}

}  // namespace
}  // namespace quode::timetables
