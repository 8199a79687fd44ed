// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The clock of every zone on every day of the years 2026 to 2050, by Quode's own edition of the zone data and by a
// newer one of the machine.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>

#include "common/civil_date.h"
#include "common/numbers.h"
#include "data/CityDatabase.h"
#include "data/city_day.h"
#include "data/tzif_writer.h"
#include "data/write_file.h"
#include "data/zone_check.h"
#include "data/zone_edition.h"
#include "support/fixtures.h"
#include "tools/places/tsv.h"
#include "tools/places/zone_changes.h"

namespace quode::places {
namespace {

using namespace std::chrono;

constexpr sys_days firstDay = 2026y / January / 1, lastDay = 2050y / December / 31;

sys_days dayOf(std::string_view text) {
    const auto number = [&text](std::size_t at, std::size_t length) { return *numberOf<int>(text.substr(at, length)); };
    return year(number(0, 4)) / number(5, 2) / number(8, 2);
}

// The offsets of each zone, by the day from which each holds.
std::map<std::string, std::map<sys_days, int>> publishedOffsets() {
    std::map<std::string, std::map<sys_days, int>> offsets;
    for (const auto& row : readTable(test::fixture("zones/offsets_2026f.tsv.gz"), 3)) {
        offsets[row[0]][dayOf(row[1])] = *numberOf<int>(row[2]);
    }
    return offsets;
}

ZoneClock clockOf(const StoredZone& zone) {
    return {zone.rule, zone.known};
}

TEST(ZoneClocks, AreThoseOfTheShippedEditionOnEveryDay) {
    const CityDatabase cities(QUODE_CITY_DATABASE);
    const auto published = publishedOffsets();
    const std::vector<StoredZone> zones = cities.zones();
    ASSERT_EQ(zones.size(), published.size());
    long days = 0;
    for (const StoredZone& zone : zones) {
        const std::map<sys_days, int>& offsets = published.at(zone.name);
        for (sys_days day = firstDay; day <= lastDay; ++day, ++days) {
            const int offset = std::prev(offsets.upper_bound(day))->second;
            ASSERT_EQ(clockOf(zone).offsetOn(day), offset) << zone.name << " " << (day - firstDay).count();
        }
    }
    RecordProperty("days", std::to_string(days));
}

// "2026-04-05T03:00:00Z"
sys_seconds momentOf(std::string_view text) {
    const auto number = [&text](std::size_t at) { return *numberOf<int>(text.substr(at, 2)); };
    return dayOf(text) + hours(number(11)) + minutes(number(14)) + seconds(number(17));
}

// The moments from which each zone has an offset.
std::map<std::string, std::map<sys_seconds, int>> publishedChanges() {
    std::map<std::string, std::map<sys_seconds, int>> changes;
    for (const auto& row : readTable(test::fixture("zones/changes_2026f.tsv.gz"), 4)) {
        changes[row[0]][momentOf(row[1])] = *numberOf<int>(row[3]);
    }
    return changes;
}

// Around each change, and six times a day in between.
TEST(ZoneClocks, AreThoseOfTheShippedEditionAtEveryMoment) {
    const auto published = publishedChanges();
    const std::vector<StoredZone> zones = CityDatabase(QUODE_CITY_DATABASE).zones();
    ASSERT_EQ(zones.size(), published.size());
    for (const StoredZone& zone : zones) {
        const ZoneClock clock = clockOf(zone);
        const std::map<sys_seconds, int>& changes = published.at(zone.name);
        int before = changes.begin()->second;
        for (const auto& [moment, offset] : changes) {
            ASSERT_EQ(clock.offsetAt(moment - 1s), before) << zone.name << " " << moment.time_since_epoch().count();
            ASSERT_EQ(clock.offsetAt(moment), offset) << zone.name << " " << moment.time_since_epoch().count();
            before = offset;
        }
        for (sys_seconds moment = firstDay; moment < lastDay; moment += 4h) {
            const int offset = std::prev(changes.upper_bound(moment))->second;
            ASSERT_EQ(clock.offsetAt(moment), offset) << zone.name << " " << moment.time_since_epoch().count();
        }
    }
}

// Any rule will do that no edition has: a whole number of quarters that grows with the zone, and another on 2 March of
// 2027.
struct FakeZone {
    int standard = 0;
    int afterwards = 0;
};

FakeZone fakeZone(std::size_t index) {
    const int quarters = static_cast<int>(index % 90) - 44;
    return {quarters * 900, quarters * 900 + (index % 2 == 0 ? 3600 : -1800)};
}

TEST(ZoneClocks, AreThoseOfTheMachineOnEveryDayWhereItsEditionIsNewer) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "tzdata.zi", "# version 2026g\n");
    const sys_days change = 2027y / March / 2;
    const std::vector<StoredZone> names = CityDatabase(QUODE_CITY_DATABASE).zones();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const FakeZone fake = fakeZone(i);
        const auto moment = (change + 1h - seconds(fake.standard)).time_since_epoch() / 1s;
        test::writeFile(folder, names[i].name, test::tzif(fake.standard, {{moment, fake.afterwards}}, ""));
    }
    const std::vector<StoredZone> zones = CityDatabase(QUODE_CITY_DATABASE, folder.path()).zones();
    for (std::size_t i = 0; i < zones.size(); ++i) {
        EXPECT_EQ(zones[i].known->edition, "2026g");
        for (sys_days day = firstDay; day <= lastDay; ++day) {
            const int offset = day < change ? fakeZone(i).standard : fakeZone(i).afterwards;
            ASSERT_EQ(clockOf(zones[i]).offsetOn(day), offset) << zones[i].name << " " << (day - firstDay).count();
        }
    }
}

TEST(ZoneClocks, AreOursWhereTheEditionOfTheMachineIsOlderOrUnknown) {
    for (const char* line : {"# version 2026e\n", "# version 2026f\n", "# version 2025b\n", "# nothing\n", ""}) {
        const test::TemporaryFolder folder;
        test::writeFile(folder, "tzdata.zi", line);
        test::writeFile(folder, "America/Havana", test::tzif(0, {}, "UTC0"));
        const CityDatabase cities(QUODE_CITY_DATABASE, folder.path());
        const CityRecord havana = *cities.largestCityOfZone("America/Havana");
        EXPECT_EQ(havana.known->edition, "2026f") << line;
        EXPECT_EQ(siteOf(havana).clock().offsetOn(2027y / January / 15), -4 * 3600) << line;
    }
}

TEST(ZoneClocks, AreOursForAZoneThatTheNewerMachineLacks) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "+VERSION", "2031c\n");
    const CityRecord havana = *CityDatabase(QUODE_CITY_DATABASE, folder.path()).largestCityOfZone("America/Havana");
    EXPECT_EQ(havana.known->edition, "2026f");
    EXPECT_EQ(havana.known->systemEdition, "2031c");
}

// What the engine makes of the rule on the days on which a clock changes, and on those before and after.
TEST(ZoneClocks, LeadTheEngineOnEveryDayOfAChange) {
    const auto published = publishedOffsets();
    for (const StoredZone& zone : CityDatabase(QUODE_CITY_DATABASE).zones()) {
        const Site site{45.0, 0.0, zone.rule, true, {}, zone.known};
        const auto& offsets = published.at(zone.name);
        for (const auto& [change, ignored] : offsets) {
            for (const sys_days day : {std::max(change - days(1), firstDay), change, change + days(1)}) {
                const CityDay computed = computeCityDay(site, recordOf(day));
                const int offset = std::prev(offsets.upper_bound(day))->second;
                ASSERT_NEAR(computed.GMTValue * 3600.0, offset, 1e-6) << zone.name;
            }
        }
    }
}

TEST(ZoneClocks, KeepSummerTimeThroughTheWinterInHavana) {
    const CityRecord havana = *CityDatabase(QUODE_CITY_DATABASE).largestCityOfZone("America/Havana");
    const CityDay day = computeCityDay(siteOf(havana), VAKDateMake(15, 1, 2027, 0, 0, 0));
    EXPECT_EQ(day.GMTValue, -4.0);
    EXPECT_TRUE(day.isDSTTime);
    EXPECT_EQ(wallClock(siteOf(havana).clock(), sys_days(2027y / January / 15) + 12h).Hours, 8);
    const auto change = nextClockChange(siteOf(havana).clock(), 2026y / October / 1);
    ASSERT_TRUE(change);
    EXPECT_EQ(change->date, 2027y / November / 7);
}

// The clocks of Easter Island change late in the evening: on the day that the rule names, all times are of the old
// time.
TEST(ZoneClocks, KeepTheOldTimeOnTheChangeDaysOfEasterIsland) {
    const CityRecord easter = *CityDatabase(QUODE_CITY_DATABASE).largestCityOfZone("Pacific/Easter");
    const auto offset = [&easter](int day) {
        return computeCityDay(siteOf(easter), VAKDateMake(day, 4, 2026, 0, 0, 0)).GMTValue;
    };
    EXPECT_EQ(offset(3), -5.0);
    EXPECT_EQ(offset(4), -5.0);
    EXPECT_EQ(offset(5), -6.0);
}

std::string wallClockText(const CityRecord& city, sys_seconds moment) {
    const VAKDate clock = wallClock(siteOf(city).clock(), moment);
    return std::to_string(clock.Days) + " " + std::to_string(clock.Hours) + ":" + std::to_string(clock.Minutes);
}

// Easter Island changes at 22 o'clock on Saturday, Cuba at 0 and 1 o'clock, Greenland at 23 and 24 o'clock.
TEST(ZoneClocks, ShowTheTrueClockInTheNightOfAChange) {
    const CityDatabase cities(QUODE_CITY_DATABASE);
    const CityRecord easter = *cities.largestCityOfZone("Pacific/Easter");
    EXPECT_EQ(wallClockText(easter, sys_days(2026y / April / 5) + 2h + 59min), "4 21:59");
    EXPECT_EQ(wallClockText(easter, sys_days(2026y / April / 5) + 3h), "4 21:0");
    EXPECT_EQ(wallClockText(easter, sys_days(2026y / September / 6) + 3h + 59min), "5 21:59");
    EXPECT_EQ(wallClockText(easter, sys_days(2026y / September / 6) + 4h), "5 23:0");
    const CityRecord havana = *cities.largestCityOfZone("America/Havana");
    EXPECT_EQ(wallClockText(havana, sys_days(2026y / March / 8) + 4h + 59min), "7 23:59");
    EXPECT_EQ(wallClockText(havana, sys_days(2026y / March / 8) + 5h), "8 1:0");
    EXPECT_EQ(wallClockText(havana, sys_days(2027y / November / 7) + 5h), "7 0:0");
    const CityRecord nuuk = *cities.largestCityOfZone("America/Nuuk");
    EXPECT_EQ(wallClockText(nuuk, sys_days(2027y / March / 28) + 59min), "27 22:59");
    EXPECT_EQ(wallClockText(nuuk, sys_days(2027y / March / 28) + 1h), "28 0:0");
}

TEST(ZoneClocks, NameTheDayOnWhichTheClocksChange) {
    const CityDatabase cities(QUODE_CITY_DATABASE);
    const auto change = [&cities](const char* zone, year_month_day after) {
        return nextClockChange(siteOf(*cities.largestCityOfZone(zone)).clock(), after)->date;
    };
    EXPECT_EQ(change("Pacific/Easter", 2027y / January / 1), 2027y / April / 3);
    EXPECT_EQ(change("Pacific/Easter", 2027y / April / 3), 2027y / April / 3);  // in the evening of that day
    EXPECT_EQ(change("Pacific/Easter", 2027y / April / 4), 2027y / September / 4);
    EXPECT_EQ(change("America/Havana", 2027y / January / 1), 2027y / November / 7);
    EXPECT_EQ(change("America/Nuuk", 2027y / January / 1), 2027y / March / 27);
    EXPECT_EQ(change("Africa/Cairo", 2026y / May / 1), 2026y / October / 30);
    EXPECT_EQ(change("Europe/Berlin", 2027y / January / 1), 2027y / March / 28);
}

TEST(ZoneChangesFile, IsWhatTheZoneDataOfThisMachineGive) {
    if (zoneEditionOf(systemZoneFolder) != "2026f") GTEST_SKIP() << "this machine has another edition of the zone data";
    std::ifstream file(QUODE_PLACE_DATA "/zone_changes.tsv", std::ios::binary);
    const std::string committed{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(zoneChangesTable(QUODE_PLACE_DATA, systemZoneFolder), committed);
}

TEST(ZoneChangesFile, IsNotMadeFromAnotherEdition) {
    const test::TemporaryFolder folder;
    test::writeFile(folder, "tzdata.zi", "# version 2025b\n");
    EXPECT_THROW(zoneChangesTable(QUODE_PLACE_DATA, folder.path()), std::runtime_error);
}

TEST(ZoneEdition, IsReadFromEitherFile) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(zoneEditionOf(folder.path()), "");
    test::writeFile(folder, "+VERSION", "2026f\n");
    EXPECT_EQ(zoneEditionOf(folder.path()), "2026f");
    test::writeFile(folder, "tzdata.zi", "# version 2027a-custom\n# more\n");
    EXPECT_EQ(zoneEditionOf(folder.path()), "2027a");
    test::writeFile(folder, "tzdata.zi", "# version unknown\n");
    EXPECT_EQ(zoneEditionOf(folder.path()), "");
}

TEST(ZoneEdition, IsOrderedByYearAndLetters) {
    EXPECT_TRUE(isNewerEdition("2026g", "2026f"));
    EXPECT_TRUE(isNewerEdition("2027a", "2026z"));
    EXPECT_TRUE(isNewerEdition("2026za", "2026z"));
    EXPECT_FALSE(isNewerEdition("2026f", "2026f"));
    EXPECT_FALSE(isNewerEdition("2025z", "2026a"));
    EXPECT_FALSE(isNewerEdition("", "2026f"));
    EXPECT_FALSE(isNewerEdition("newest", "2026f"));
}

}  // namespace
}  // namespace quode::places
