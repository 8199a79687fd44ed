// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A record that another program changed is rejected, whichever table contains the change.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "common/GlobalFuncs.h"
#include "data/City.h"
#include "data/CityDatabase.h"
#include "support/fake_platform.h"
#include "support/temporary_folder.h"

namespace quode {
namespace {

constexpr int hongKong = 1819729;

// A bundle with a city database that a statement has changed.
class DamagedBundle {
  public:
    explicit DamagedBundle(const std::string& sql) {
        std::filesystem::create_directory(folder_.path() / "database");
        std::filesystem::copy_file(QUODE_CITY_DATABASE, file());
        sqlite3* database = nullptr;
        EXPECT_EQ(sqlite3_open(file().c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        EXPECT_GT(sqlite3_changes(database), 0) << sql;
        sqlite3_close(database);
    }

    std::filesystem::path path() const { return folder_.path(); }
    std::filesystem::path file() const { return CityDatabase::fileIn(folder_.path()); }

  private:
    test::TemporaryFolder folder_;
};

class DamagedRecord : public testing::TestWithParam<const char*> {};

TEST_P(DamagedRecord, IsAnErrorThatSaysWhatToDo) {
    const DamagedBundle bundle(GetParam());
    const CityDatabase cities(bundle.file());
    try {
        cities.city(hongKong);
        ADD_FAILURE() << "the record was accepted";
    } catch (const CityDatabaseError& error) {
        EXPECT_EQ(error.reason(), CityDatabaseError::Reason::damaged);
        EXPECT_NE(std::string(error.what()).find("Install Quode again"), std::string::npos) << error.what();
    }
}

TEST_P(DamagedRecord, FillsNoCity) {
    const DamagedBundle bundle(GetParam());
    GlobalFuncs::startUp(test::FakePlatform().platform());
    GlobalFuncs::globalFuncs().setApplicationBundlePath(bundle.path().string());
    City city;
    city.setCityId(std::to_string(hongKong));
    city.getAllCityInfo(city);
    EXPECT_EQ(city.name(), "");
    EXPECT_EQ(city.longitude(), "");
}

INSTANTIATE_TEST_SUITE_P(
    OfEachTable, DamagedRecord,
    testing::Values("UPDATE CITY SET LON = '1' || substr(LON, 2, 1) || substr(LON, 4) WHERE ID = 1819729",
                    "UPDATE CITY SET LAT = '-' || LAT WHERE ID = 1819729",
                    "UPDATE CITY SET NAME = 'Hong Gong' WHERE ID = 1819729",
                    "UPDATE CITY SET TEMKIN = 0 WHERE ID = 1819729",
                    "UPDATE CITY SET PARENT = PARENT + 1 WHERE ID = 1819729", "UPDATE CITY_PARENT SET GMT = '9'",
                    "UPDATE CITY_PARENT SET DSTID = DSTID + 1", "UPDATE DST SET HOUR = HOUR + 1",
                    "UPDATE PARENT_FACT SET ZONE = ZONE - 1", "UPDATE CITY_FACT SET ELEVATION = 7 WHERE ID = 1819729",
                    "DELETE FROM CITY_CHECKSUM WHERE ID = 1819729"));

TEST(DamagedZone, IsAnErrorInsteadOfAnotherZonesCity) {
    for (const char* sql : {"UPDATE ZONE SET LARGEST = 745044 WHERE NAME = 'Asia/Hong_Kong'",
                            "UPDATE ZONE_NAME SET ZONE = ZONE + 1 WHERE NAME = 'Asia/Hong_Kong'"}) {
        const DamagedBundle bundle(sql);
        const CityDatabase cities(bundle.file());
        EXPECT_THROW(cities.largestCityOfZone("Asia/Hong_Kong"), CityDatabaseError) << sql;
    }
}

TEST(DamagedPoint, IsAnErrorInsteadOfAFarPlace) {
    const DamagedBundle bundle("UPDATE CITY_POINT SET LONGITUDE = 110000 WHERE ID = 1819729");
    const CityDatabase cities(bundle.file());
    EXPECT_THROW(cities.nearest(22.278, 1.1), CityDatabaseError);
}

}  // namespace
}  // namespace quode
