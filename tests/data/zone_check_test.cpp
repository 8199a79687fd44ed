// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/zone_check.h"

#include <gtest/gtest.h>

#include <map>

#include "data/system_zone.h"
#include "data/tzif_writer.h"
#include "data/write_file.h"

namespace quode {
namespace {

using namespace std::chrono;
using test::tzif;

const StoredZone berlinZone{"Europe/Berlin", {1.0, true, 2, 35, 9, 35, 1}};
const StoredZone vancouverZone{"America/Vancouver", {-7.0, false, 0, 0, 0, 0, 0}};

TEST(ZoneCheck, AgreesWithAnEqualRule) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "Europe/Berlin", tzif(3600, {}, "CET-1CEST,M3.5.0,M10.5.0/3"));
    EXPECT_FALSE(checkZone(berlinZone, twoYearsFrom(2026y / November / 21), folder.path()));
}

TEST(ZoneCheck, ReportsTheDaysOnWhichAnOlderSystemDisagrees) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "America/Vancouver", tzif(-28800, {}, "PST8PDT,M3.2.0,M11.1.0"));
    const auto found = checkZone(vancouverZone, twoYearsFrom(2026y / November / 21), folder.path());
    ASSERT_TRUE(found);
    EXPECT_FALSE(found->unknownToSystem);
    EXPECT_EQ(found->first, 2026y / November / 21);
    EXPECT_EQ(found->last, 2028y / November / 20);
    // 21 November 2026 to 13 March 2027, 7 November 2027 to 11 March 2028, 5 to 20 November 2028
    EXPECT_EQ(found->days, 113 + 126 + 16);
    EXPECT_DOUBLE_EQ(found->storedHours, -7.0);
    EXPECT_DOUBLE_EQ(found->systemHours, -8.0);
    EXPECT_EQ(describe(*found),
              "America/Vancouver: stored UTC-7, this system says UTC-8 on 255 days (2026-11-21 to 2028-11-20)");
}

TEST(ZoneCheck, ASingleDayIsNamedAlone) {
    const test::TemporaryFolder folder;
    const auto noon = [](year_month_day date) { return (sys_days(date) + 6h).time_since_epoch() / 1s; };
    test::writeFile(folder, "Europe/Berlin",
                    tzif(3600, {{noon(2027y / January / 5), 3600 + 1800}, {noon(2027y / January / 6), 3600}},
                         "CET-1CEST,M3.5.0,M10.5.0/3"));
    const auto found = checkZone(berlinZone, twoYearsFrom(2026y / November / 21), folder.path());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->days, 1);
    EXPECT_EQ(describe(*found), "Europe/Berlin: stored UTC+1, this system says UTC+1:30 on 2027-01-05");
}

TEST(ZoneCheck, WritesAnOffsetAsExactlyAsItIs) {
    EXPECT_EQ(utcOffsetText(0.0), "UTC+0");
    EXPECT_EQ(utcOffsetText(5.75), "UTC+5:45");
    EXPECT_EQ(utcOffsetText(-3.5), "UTC-3:30");
    EXPECT_EQ(utcOffsetText(1.0 + 56.0 / 60.0 + 56.0 / 3600.0), "UTC+1:56:56");
    EXPECT_EQ(utcOffsetText(2.0 - 1.0 / 3600.0), "UTC+1:59:59");
}

TEST(ZoneCheck, LooksOnlyAtTheRange) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "America/Vancouver", tzif(-28800, {}, "PST8PDT,M3.2.0,M11.1.0"));
    const DayRange summer{sys_days(2027y / April / 1), sys_days(2027y / October / 1)};
    EXPECT_FALSE(checkZone(vancouverZone, summer, folder.path()));
    const DayRange oneDay{sys_days(2027y / November / 7), sys_days(2027y / November / 7)};
    ASSERT_TRUE(checkZone(vancouverZone, oneDay, folder.path()));
    EXPECT_EQ(checkZone(vancouverZone, oneDay, folder.path())->days, 1);
}

TEST(ZoneCheck, ZonesUnknownToTheSystemAreReportedAsSuch) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "Europe/Berlin", "not a zone file");
    for (const StoredZone& zone : {vancouverZone, berlinZone}) {
        const auto found = checkZone(zone, twoYearsFrom(2026y / November / 21), folder.path());
        ASSERT_TRUE(found);
        EXPECT_TRUE(found->unknownToSystem);
        EXPECT_EQ(describe(*found), zone.name + ": this system has no zone data of that name to compare with");
    }
}

TEST(ZoneCheck, OfManyZonesListsOnlyThoseThatDisagree) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "Europe/Berlin", tzif(3600, {}, "CET-1CEST,M3.5.0,M10.5.0/3"));
    test::writeFile(folder, "America/Vancouver", tzif(-28800, {}, "PST8PDT,M3.2.0,M11.1.0"));
    const std::vector<StoredZone> zones = {berlinZone, vancouverZone, {"Mars/Olympus", {}}};
    const auto found = checkZones(zones, twoYearsFrom(2026y / November / 21), folder.path());
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].zone, "America/Vancouver");
    EXPECT_EQ(found[1].zone, "Mars/Olympus");
}

// Rules that are the same in every edition of the system's data; both change days of each, read from the real files.
TEST(ZoneCheck, ReadsTheSystemsOwnFiles) {
    const struct {
        const char* zone;
        int standardHours;
        year_month_day start, stop;
    } cases[] = {
        {"Europe/Berlin", 1, 2026y / March / 29, 2026y / October / 25},
        {"America/New_York", -5, 2026y / March / 8, 2026y / November / 1},
        {"Pacific/Auckland", 12, 2026y / September / 27, 2026y / April / 5},
        {"Australia/Sydney", 10, 2026y / October / 4, 2026y / April / 5},
    };
    for (const auto& [name, standardHours, start, stop] : cases) {
        const auto zone = SystemZone::load(systemZoneFolder, name);
        ASSERT_TRUE(zone) << name << " is not in " << systemZoneFolder << "; install tzdata";
        const int standard = standardHours * 3600;
        EXPECT_EQ(zone->offsetAtNoon(sys_days(start) - days(1)), standard) << name;
        EXPECT_EQ(zone->offsetAtNoon(start), standard + 3600) << name;
        EXPECT_EQ(zone->offsetAtNoon(sys_days(stop) - days(1)), standard + 3600) << name;
        EXPECT_EQ(zone->offsetAtNoon(stop), standard) << name;
    }
}

}  // namespace
}  // namespace quode
