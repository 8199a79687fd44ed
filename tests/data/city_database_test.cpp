// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/CityDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cmath>

#include "data/write_file.h"
#include "support/file_content.h"

namespace quode {
namespace {

using test::contentOf;

using Reason = CityDatabaseError::Reason;
using test::TemporaryFolder;

const std::filesystem::path shipped = QUODE_CITY_DATABASE;

// The reason of a failure to open a file; its message must contain the name of the file.
Reason reasonOfRefusal(const std::filesystem::path& file) {
    try {
        CityDatabase database(file);
    } catch (const CityDatabaseError& error) {
        EXPECT_NE(std::string(error.what()).find(file.string()), std::string::npos) << error.what();
        EXPECT_NE(std::string(error.what()).find("Install Quode again"), std::string::npos) << error.what();
        return error.reason();
    }
    ADD_FAILURE() << file << " was accepted";
    return {};
}

TEST(CityDatabase, GivesAllThatIsKnownOfACity) {
    const CityDatabase database(shipped);
    const auto city = database.city(745044);
    ASSERT_TRUE(city);
    EXPECT_EQ(city->id, 745044);
    EXPECT_EQ(city->name, "Istanbul");
    EXPECT_EQ(city->region, "Istanbul");
    EXPECT_EQ(city->regionCode, "34");
    EXPECT_EQ(city->countryCode, "TR");
    EXPECT_EQ(city->countryNameEn, "Turkey");
    EXPECT_EQ(city->countryNameTr, "Türkiye");
    EXPECT_NEAR(city->latitude, 41.01384, 1e-6);
    EXPECT_NEAR(city->longitude, 28.94966, 1e-6);
    EXPECT_EQ(city->zone, "Europe/Istanbul");
    EXPECT_EQ(city->rule, (ZoneRule{3.0, false, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(city->temkin);
    EXPECT_GT(city->population, 15'000'000);
    EXPECT_EQ(city->elevation, 39);
}

TEST(CityDatabase, GivesTheSummerTimeRuleAndFractionsOfHours) {
    const CityDatabase database(shipped);
    EXPECT_EQ(database.largestCityOfZone("Europe/Berlin")->rule, (ZoneRule{1.0, true, 2, 35, 9, 35, 1}));
    EXPECT_EQ(database.largestCityOfZone("America/New_York")->rule, (ZoneRule{-5.0, true, 2, 32, 10, 31, 1}));
    EXPECT_DOUBLE_EQ(database.largestCityOfZone("Asia/Kathmandu")->rule.gmt, 5.75);
    EXPECT_DOUBLE_EQ(database.largestCityOfZone("America/St_Johns")->rule.gmt, -3.5);
}

TEST(CityDatabase, HasNothingForAnUnknownId) {
    const CityDatabase database(shipped);
    for (const int id : {0, -1, 1, 2147483647}) EXPECT_FALSE(database.city(id)) << id;
}

TEST(CityDatabase, KnownCitiesLieWhereTheyAre) {
    const struct {
        const char* name;
        double latitude, longitude;
    } cities[] = {
        {"Makkah", 21.4225, 39.8262},     {"Madinah", 24.4672, 39.6112},
        {"Jerusalem", 31.7780, 35.2354},  {"Ankara", 39.93, 32.86},
        {"Cairo", 30.044, 31.236},        {"Jakarta", -6.18, 106.83},
        {"Auckland", -36.85, 174.76},     {"Reykjavik", 64.15, -21.94},
        {"Buenos Aires", -34.61, -58.38}, {"New York City, US", 40.71, -74.01},
        {"London, GB", 51.51, -0.13},     {"Tromsø", 69.65, 18.96},
    };
    const CityDatabase database(shipped);
    for (const auto& [name, latitude, longitude] : cities) {
        const auto hits = database.search(name, 1);
        ASSERT_EQ(hits.size(), 1U) << name;
        EXPECT_NEAR(hits[0].city.latitude, latitude, 0.05) << name;
        EXPECT_NEAR(hits[0].city.longitude, longitude, 0.05) << name;
    }
}

TEST(CityDatabase, FindsTheNearestPlaceAnywhereOnEarth) {
    const CityDatabase database(shipped);
    const auto kaaba = database.nearest(21.4225, 39.8262);
    ASSERT_TRUE(kaaba);
    EXPECT_EQ(kaaba->city.zone, "Asia/Riyadh");
    EXPECT_LT(kaaba->distanceKm, 2.0);
    EXPECT_EQ(database.nearest(48.8584, 2.2945)->city.zone, "Europe/Paris");
    for (const double latitude : {-90.0, -60.0, 0.0, 60.0, 90.0}) {
        for (const double longitude : {-180.0, -90.0, 0.0, 90.0, 180.0}) {
            const auto found = database.nearest(latitude, longitude);
            ASSERT_TRUE(found) << latitude << " " << longitude;
            EXPECT_GE(found->distanceKm, 0.0);
            EXPECT_LT(found->distanceKm, 6000.0) << latitude << " " << longitude;
        }
    }
}

TEST(CityDatabase, NearnessDoesNotStopAtTheDateLine) {
    const CityDatabase database(shipped);
    // Taveuni is on both sides of the 180th meridian, with places on both sides; the point is just west of it.
    const auto west = database.nearest(-16.8, 179.999);
    const auto east = database.nearest(-16.8, -179.999);
    ASSERT_TRUE(west && east);
    EXPECT_EQ(west->city.id, east->city.id);
}

TEST(CityDatabase, ThereIsNoPlaceNearAnImpossiblePoint) {
    const CityDatabase database(shipped);
    EXPECT_FALSE(database.nearest(90.1, 0.0));
    EXPECT_FALSE(database.nearest(0.0, -180.1));
    EXPECT_FALSE(database.nearest(std::nan(""), 0.0));
    EXPECT_FALSE(database.nearest(0.0, std::nan("")));
}

TEST(CityDatabase, KnowsTheLargestCityOfAZoneByItsOldNamesToo) {
    const CityDatabase database(shipped);
    const auto nameOf = [&database](const char* zone) {
        const auto city = database.largestCityOfZone(zone);
        return city ? city->name : "";
    };
    EXPECT_EQ(nameOf("Europe/Istanbul"), "Istanbul");
    EXPECT_EQ(nameOf("Asia/Istanbul"), "Istanbul");
    EXPECT_EQ(nameOf("Turkey"), "Istanbul");
    EXPECT_EQ(nameOf("Asia/Calcutta"), nameOf("Asia/Kolkata"));
    EXPECT_EQ(nameOf("Asia/Kolkata"), "Mumbai");
    EXPECT_EQ(nameOf("Europe/Kiev"), "Kyiv");
    EXPECT_EQ(nameOf("US/Eastern"), "New York City");
    EXPECT_EQ(nameOf("Iceland"), "Reykjavík");
    for (const char* zone : {"Etc/UTC", "UTC", "GMT", "", "Nowhere/Land", "europe/istanbul"})
        EXPECT_EQ(nameOf(zone), "") << zone;
}

TEST(CityDatabase, ListsEveryZoneOnceByName) {
    const CityDatabase database(shipped);
    const auto zones = database.zones();
    ASSERT_EQ(zones.size(), 394U);
    int withSummerTime = 0;
    for (std::size_t i = 0; i < zones.size(); ++i) {
        EXPECT_TRUE(i == 0 || zones[i - 1].name < zones[i].name) << zones[i].name;
        EXPECT_TRUE(isValid(zones[i].rule)) << zones[i].name;
        withSummerTime += zones[i].rule.dst ? 1 : 0;
        const auto city = database.largestCityOfZone(zones[i].name);
        ASSERT_TRUE(city) << zones[i].name;
        EXPECT_EQ(city->zone, zones[i].name);
        EXPECT_EQ(city->rule, zones[i].rule);
    }
    EXPECT_EQ(withSummerTime, 115);
}

TEST(CityDatabase, TellsItsEdition) {
    EXPECT_EQ(CityDatabase(shipped).edition(), "places 2026-09, zones 2026f");
}

TEST(CityDatabase, IsFoundInTheBundlesDatabaseFolder) {
    EXPECT_EQ(CityDatabase::fileIn("/x/Quode.bundle"), "/x/Quode.bundle/database/cities.sqlite");
}

TEST(CityDatabase, AMissingFileIsReportedAndNotCreated) {
    const TemporaryFolder folder;
    EXPECT_EQ(reasonOfRefusal(folder.path() / "cities.sqlite"), Reason::missing);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    EXPECT_EQ(reasonOfRefusal(folder.path()), Reason::missing);
}

TEST(CityDatabase, DamagedFilesAreReported) {
    const TemporaryFolder folder;
    EXPECT_EQ(reasonOfRefusal(test::writeFile(folder, "empty", "")), Reason::damaged);
    EXPECT_EQ(reasonOfRefusal(test::writeFile(folder, "text", std::string(100000, 'x'))), Reason::damaged);
    const std::string good = contentOf(shipped);
    EXPECT_EQ(reasonOfRefusal(test::writeFile(folder, "short", std::string_view(good).substr(0, good.size() / 2))),
              Reason::damaged);
    EXPECT_EQ(reasonOfRefusal(test::writeFile(folder, "first page", std::string_view(good).substr(0, 4096))),
              Reason::damaged);
    std::string overwritten = good;
    std::fill(overwritten.begin() + 100, overwritten.begin() + 4096, '\x7F');
    EXPECT_EQ(reasonOfRefusal(test::writeFile(folder, "overwritten", overwritten)), Reason::damaged);
}

TEST(CityDatabase, DamageFurtherInsideIsReportedWhenItIsMet) {
    const TemporaryFolder folder;
    std::string inside = contentOf(shipped);
    std::fill(inside.begin() + 8192, inside.end(), '\x7F');
    const CityDatabase database(test::writeFile(folder, "inside", inside));
    EXPECT_THROW(database.city(745044), CityDatabaseError);
    EXPECT_THROW(database.search("istanbul"), CityDatabaseError);
    EXPECT_THROW(database.nearest(41.0, 29.0), CityDatabaseError);
}

TEST(CityDatabase, AnotherKindOfDatabaseAndAnotherEditionAreReported) {
    const TemporaryFolder folder;
    const auto made = [&folder](const char* name, const char* sql) {
        const std::filesystem::path file = folder.path() / name;
        sqlite3* database = nullptr;
        EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
        return file;
    };
    EXPECT_EQ(reasonOfRefusal(made("other", "CREATE TABLE CITY (ID INTEGER)")), Reason::damaged);
    EXPECT_EQ(
        reasonOfRefusal(made("newer", "PRAGMA application_id=0x51554F44; PRAGMA user_version=99; CREATE TABLE X (Y)")),
        Reason::wrongEdition);
    EXPECT_EQ(
        reasonOfRefusal(made("bare", "PRAGMA application_id=0x51554F44; PRAGMA user_version=7; CREATE TABLE X (Y)")),
        Reason::damaged);
}

TEST(CityDatabase, OpensInAFolderWhoseNameMeansSomethingToAUri) {
    const TemporaryFolder folder;
    const auto odd = folder.path() / "a?mode=rwc&b#c%20d é";
    std::filesystem::create_directories(odd);
    std::filesystem::create_symlink(shipped, odd / "cities.sqlite");
    EXPECT_TRUE(CityDatabase(odd / "cities.sqlite").city(745044));
}

}  // namespace
}  // namespace quode
