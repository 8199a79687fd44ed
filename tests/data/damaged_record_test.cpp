// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What another program changed in the city database is rejected, whichever table contains the change.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <array>
#include <fstream>

#include "common/GlobalFuncs.h"
#include "data/City.h"
#include "data/CityDatabase.h"
#include "data/page_checksum.h"
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
        sealFirstPage();
    }

    std::filesystem::path path() const { return folder_.path(); }
    std::filesystem::path file() const { return CityDatabase::fileIn(folder_.path()); }

  private:
    // SQLite counts its changes there: what the test wants to see noticed is the change itself.
    void sealFirstPage() const {
        std::array<unsigned char, pageSize> page{};
        std::fstream stream(file(), std::ios::binary | std::ios::in | std::ios::out);
        stream.read(reinterpret_cast<char*>(page.data()), pageSize);
        sealPage(page, 0);
        stream.seekp(0).write(reinterpret_cast<const char*>(page.data()), pageSize);
    }

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

TEST(MissingPoints, AreAnErrorInsteadOfAFartherPlace) {
    const DamagedBundle bundle(
        "DELETE FROM CITY_POINT WHERE LATITUDE BETWEEN 5110000 AND 5190000 AND LONGITUDE BETWEEN -60000 AND 50000");
    const CityDatabase cities(bundle.file());
    EXPECT_THROW(cities.nearest(51.5, -0.12), CityDatabaseError);
}

class DamagedName : public testing::TestWithParam<const char*> {};

TEST_P(DamagedName, IsAnErrorInsteadOfAnotherPlace) {
    const DamagedBundle bundle(GetParam());
    const CityDatabase cities(bundle.file());
    EXPECT_THROW(cities.named("London"), CityDatabaseError);
    EXPECT_THROW(cities.search("London"), CityDatabaseError);
    EXPECT_THROW(cities.verify(), CityDatabaseError);
}

INSTANTIATE_TEST_SUITE_P(
    Of, DamagedName,
    testing::Values("UPDATE CITY_NAME SET FOLDED = 'londom' WHERE FOLDED = 'london' AND ID = 2643743",
                    "UPDATE CITY_NAME SET POPULATION = 99999999 WHERE FOLDED = 'london' AND ID <> 2643743",
                    "DELETE FROM CITY_NAME WHERE FOLDED = 'london'"));

TEST(DamagedNames, AreAnErrorInASearchWithATypingMistake) {
    const DamagedBundle bundle("UPDATE NAME_GROUP SET NAMES = zeroblob(length(NAMES)) WHERE LENGTH = 6");
    const CityDatabase cities(bundle.file());
    EXPECT_THROW(cities.search("lonndon"), CityDatabaseError);
}

TEST(DamagedFile, IsFoundByTheVerificationWhereverABitIsWrong) {
    const test::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "cities.sqlite";
    std::filesystem::copy_file(QUODE_CITY_DATABASE, file);
    const CityDatabase cities(file);
    EXPECT_NO_THROW(cities.verify());
    const auto size = static_cast<std::streamoff>(std::filesystem::file_size(file));
    for (const std::streamoff at : {std::streamoff{100}, size / 3, size / 2, size - 4096, size - 1}) {
        std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
        const int byte = stream.seekg(at).get();
        const auto put = [&](int value) { stream.seekp(at).put(static_cast<char>(value)).flush(); };
        put(byte ^ 0x10);
        EXPECT_THROW(cities.verify(), CityDatabaseError) << at;
        put(byte);
        EXPECT_NO_THROW(cities.verify()) << at;
    }
}

}  // namespace
}  // namespace quode
