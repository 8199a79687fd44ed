// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/system_zone.h"

#include <gtest/gtest.h>

#include "data/tzif_writer.h"
#include "data/write_file.h"

namespace quode {
namespace {

using namespace std::chrono;
using test::tzif;

std::int64_t at(year_month_day date, int hours = 0) {
    return (sys_days(date) + std::chrono::hours(hours)).time_since_epoch() / 1s;
}

TEST(SystemZone, BeforeBetweenAndAfterTheTransitions) {
    const auto zone =
        SystemZone::parse(tzif(1000, {{at(2000y / May / 1), 7200}, {at(2010y / May / 1), 10800}}, "<+03>-3"));
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->offsetAt(sys_days(1900y / January / 1)), 1000);
    EXPECT_EQ(zone->offsetAt(sys_days(2000y / May / 1) - 1s), 1000);
    EXPECT_EQ(zone->offsetAt(sys_days(2000y / May / 1)), 7200);
    EXPECT_EQ(zone->offsetAt(sys_days(2009y / May / 1)), 7200);
    EXPECT_EQ(zone->offsetAt(sys_days(2027y / May / 1)), 10800);
}

TEST(SystemZone, AfterTheLastTransitionTheFooterRules) {
    const auto zone =
        SystemZone::parse(tzif(3600, {{at(1996y / October / 27, 1), 3600}}, "CET-1CEST,M3.5.0,M10.5.0/3"));
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->offsetAt(sys_days(2027y / July / 1)), 7200);
    EXPECT_EQ(zone->offsetAt(sys_days(2027y / December / 1)), 3600);
}

TEST(SystemZone, TransitionsComeBeforeTheFooter) {
    // An interruption of summer time that the footer does not have.
    const auto zone = SystemZone::parse(
        tzif(7200, {{at(2027y / April / 1), 10800}, {at(2027y / May / 1), 7200}, {at(2027y / June / 1), 10800}},
             "EET-2EEST,M3.5.0/3,M10.5.0/4"));
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->offsetAt(sys_days(2027y / May / 15)), 7200);
    EXPECT_EQ(zone->offsetAt(sys_days(2027y / June / 15)), 10800);
}

TEST(SystemZone, WithoutAFooterTheLastOffsetStays) {
    const auto zone = SystemZone::parse(tzif(0, {{at(2000y / May / 1), -3600}}, ""));
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->offsetAt(sys_days(2100y / January / 1)), -3600);
}

TEST(SystemZone, NoonIsThatOfTheZonesOwnClock) {
    // Far from Greenwich the clocks change at 02:00 local time of 14 March, which is another day in Greenwich.
    const auto honolulu = SystemZone::parse(tzif(0, {}, "HST10HDT,M3.2.0,M11.1.0"));
    ASSERT_TRUE(honolulu);
    EXPECT_EQ(honolulu->offsetAtNoon(sys_days(2027y / March / 13)), -10 * 3600);
    EXPECT_EQ(honolulu->offsetAtNoon(sys_days(2027y / March / 14)), -9 * 3600);
    const auto auckland = SystemZone::parse(tzif(0, {}, "NZST-12NZDT,M9.5.0,M4.1.0/3"));
    ASSERT_TRUE(auckland);
    EXPECT_EQ(auckland->offsetAtNoon(sys_days(2027y / September / 25)), 12 * 3600);
    EXPECT_EQ(auckland->offsetAtNoon(sys_days(2027y / September / 26)), 13 * 3600);
    EXPECT_EQ(auckland->offsetAtNoon(sys_days(2027y / April / 3)), 13 * 3600);
    EXPECT_EQ(auckland->offsetAtNoon(sys_days(2027y / April / 4)), 12 * 3600);
}

TEST(SystemZone, RefusesEveryDamagedFile) {
    const std::string good = tzif(3600, {{at(2000y / May / 1), 7200}}, "EET-2");
    ASSERT_TRUE(SystemZone::parse(good));
    for (std::size_t length = 0; length < good.size(); ++length)
        EXPECT_FALSE(SystemZone::parse(good.substr(0, length))) << length;
    std::string wrongMagic = good;
    wrongMagic[0] = 'X';
    EXPECT_FALSE(SystemZone::parse(wrongMagic));
    std::string oldVersion = good;
    oldVersion[4] = '\0';
    EXPECT_FALSE(SystemZone::parse(oldVersion));
    std::string hugeCount = good;
    hugeCount[54 + 32] = '\x7F';  // number of transitions in the second header
    EXPECT_FALSE(SystemZone::parse(hugeCount));
    EXPECT_FALSE(SystemZone::parse(tzif(0, {}, "nonsense")));
}

TEST(SystemZone, RefusesTransitionsOutOfOrder) {
    EXPECT_FALSE(SystemZone::parse(tzif(0, {{at(2010y / May / 1), 1}, {at(2000y / May / 1), 2}}, "GMT0")));
}

TEST(SystemZone, LoadsByNameAndStaysInItsFolder) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "zones/Test/Zone", tzif(0, {}, "EET-2"));
    test::writeFile(folder, "outside", tzif(0, {}, "EET-2"));
    const auto zones = folder.path() / "zones";
    EXPECT_TRUE(SystemZone::load(zones, "Test/Zone"));
    const std::string absolute = (folder.path() / "outside").string();
    const std::vector<std::string> names = {"Test/Missing", "Test", "", "../outside", "Test/../../outside", absolute};
    for (const std::string& name : names) {
        EXPECT_FALSE(SystemZone::load(zones, name)) << name;
    }
}

}  // namespace
}  // namespace quode
