// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Every row of the database that is shipped.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <map>
#include <memory>
#include <set>

#include "common/GlobalFuncs.h"
#include "common/utf8.h"
#include "data/City.h"
#include "data/CityDatabase.h"
#include "data/zone_rules.h"
#include "support/fake_platform.h"
#include "tools/places/place_id.h"
#include "tools/places/source_data.h"

namespace quode {
namespace {

// The query of `City::getAllCityInfo`; the blanks do not matter here.
constexpr const char* cityQuery =
    "SELECT C.NAME, CP.NAME, CC.NAMEEN, CC.NAMETR, C.LAT, C.LON, CP.GMT, D.DST, D.STARTMONTH, D.STARTDAY, D.STOPMONTH, "
    "D.STOPDAY, D.HOUR, C.TEMKIN FROM CITY_PARENT CP, CITY C, DST D, COUNTRY CC WHERE CP.PARENT = C.PARENT AND "
    "CC.CID = CP.CID AND CP.DSTID = D.DSTID AND C.ID=?1";

double number(std::string_view text) {
    double value = 1e9;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : 1e9;
}

class ShippedDatabase : public testing::Test {
  protected:
    using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

    void SetUp() override {
        ASSERT_EQ(sqlite3_open_v2(QUODE_CITY_DATABASE, &database_, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    }
    void TearDown() override { sqlite3_close(database_); }

    Statement query(const std::string& sql) const {
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database_);
        return {statement, sqlite3_finalize};
    }

    static std::string text(const Statement& row, int column) {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(row.get(), column));
        return bytes ? bytes : "";
    }

    long count(const std::string& sql) const {
        const Statement row = query(sql);
        return sqlite3_step(row.get()) == SQLITE_ROW ? static_cast<long>(sqlite3_column_int64(row.get(), 0)) : -1;
    }

    std::vector<int> ids() const {
        std::vector<int> all;
        const Statement row = query("SELECT ID FROM CITY ORDER BY ID");
        while (sqlite3_step(row.get()) == SQLITE_ROW) all.push_back(sqlite3_column_int(row.get(), 0));
        return all;
    }

  private:
    sqlite3* database_ = nullptr;
};

// The first thing that is wrong with a row of the city query; empty when all is well.
std::string faultOf(const std::array<std::string, 14>& row) {
    for (int name = 0; name < 4; ++name) {
        const std::string& value = row[static_cast<std::size_t>(name)];
        if (value.empty() || !isUtf8(value)) return "name " + value;
    }
    const double latitude = number(formatting::getFloatStr(row[4]));
    const double longitude = number(formatting::getFloatStr(row[5]));
    if (!(latitude >= -90.0 && latitude <= 90.0)) return "latitude " + row[4];
    if (!(longitude >= -180.0 && longitude <= 180.0)) return "longitude " + row[5];
    const double gmt = number(row[6]);
    if (!(gmt >= -12.0 && gmt <= 14.0)) return "GMT " + row[6];
    std::array<int, 6> rule{};
    for (std::size_t i = 0; i < rule.size(); ++i) {
        const double value = number(row[7 + i]);
        if (value < 0.0 || value > 65.0) return "rule " + row[7 + i];
        rule[i] = static_cast<int>(value);
    }
    const auto [dst, startMonth, startDay, stopMonth, stopDay, hour] = rule;
    const bool none = dst == 0 && startMonth + startDay + stopMonth + stopDay + hour == 0;
    const bool some = dst == 1 && startDay >= 31 && stopDay >= 31 && startMonth != stopMonth && hour == 1 &&
                      isValid({gmt, true, startMonth, startDay, stopMonth, stopDay, hour});
    if (!none && !some) return "rule of DST " + row[7];
    return row[13] == "0" || row[13] == "1" ? "" : "temkin " + row[13];
}

TEST_F(ShippedDatabase, FindsEveryPlaceByItsName) {
    const CityDatabase cities(QUODE_CITY_DATABASE);
    const Statement row = query("SELECT DISTINCT NAME FROM CITY");
    int lost = 0;
    while (sqlite3_step(row.get()) == SQLITE_ROW) {
        const std::string name = text(row, 0);
        if (!cities.named(name, 1).empty()) continue;
        ++lost;
        ADD_FAILURE() << name;
        if (lost > 20) break;
    }
}

TEST_F(ShippedDatabase, EveryCityIsSoundThroughTheCitysOwnQuery) {
    const Statement row = query(cityQuery);
    int rows = 0;
    for (const int id : ids()) {
        sqlite3_bind_int(row.get(), 1, id);
        ASSERT_EQ(sqlite3_step(row.get()), SQLITE_ROW) << id;
        std::array<std::string, 14> columns;
        for (int column = 0; column < 14; ++column) columns[static_cast<std::size_t>(column)] = text(row, column);
        ASSERT_EQ(faultOf(columns), "") << id << " " << columns[0];
        ASSERT_EQ(sqlite3_step(row.get()), SQLITE_DONE) << id << " has two rows";
        sqlite3_reset(row.get());
        ++rows;
    }
    EXPECT_EQ(rows, 146498 + 24571);
}

TEST_F(ShippedDatabase, TwoThousandCitiesAreFilledByTheCityItself) {
    GlobalFuncs::startUp(test::FakePlatform().platform()).setApplicationBundlePath(QUODE_BUNDLE);
    const std::vector<int> all = ids();
    for (std::size_t i = 0; i < 2000; ++i) {
        City city;
        city.setCityId(std::to_string(all[i * all.size() / 2000]));
        city.getAllCityInfo(city);
        const std::array<std::string, 14> facts = {city.name(),
                                                   city.nameParent(),
                                                   city.countryNameEn(),
                                                   city.countryNameTr(),
                                                   "0",
                                                   "0",
                                                   city.GMT(),
                                                   city.DST(),
                                                   city.startMonth(),
                                                   city.startDay(),
                                                   city.stopMonth(),
                                                   city.stopDay(),
                                                   city.hour(),
                                                   city.temkin()};
        ASSERT_EQ(faultOf(facts), "") << city.cityId();
        ASSERT_LE(std::abs(number(city.latitude())), 90.0) << city.cityId();
        ASSERT_LE(std::abs(number(city.longitude())), 180.0) << city.cityId();
    }
}

TEST_F(ShippedDatabase, HoldsThePlacesOfTheSourceUnchanged) {
    const places::SourceData source = places::readSourceData(QUODE_PLACE_DATA);
    const Statement row = query(
        "SELECT C.ID, C.NAME, C.LAT, C.LON, K.CODE, F.CODE, Z.NAME FROM CITY C JOIN CITY_PARENT P ON P.PARENT = "
        "C.PARENT "
        "JOIN PARENT_FACT F ON F.PARENT = C.PARENT JOIN COUNTRY_FACT K ON K.CID = P.CID JOIN ZONE Z ON Z.ZONE = F.ZONE "
        "ORDER BY C.ID");
    for (const places::Place& place : source.places) {
        ASSERT_EQ(sqlite3_step(row.get()), SQLITE_ROW);
        ASSERT_EQ(sqlite3_column_int(row.get(), 0), place.id);
        ASSERT_EQ(text(row, 1), place.name);
        ASSERT_NEAR(number(formatting::getFloatStr(text(row, 2))), static_cast<double>(place.latitude) / 1e5, 1e-6)
            << place.id;
        ASSERT_NEAR(number(formatting::getFloatStr(text(row, 3))), static_cast<double>(place.longitude) / 1e5, 1e-6)
            << place.id;
        const places::Region& region = source.regions[static_cast<std::size_t>(place.region)];
        ASSERT_EQ(text(row, 4), region.country);
        ASSERT_EQ(text(row, 5), region.code);
        ASSERT_EQ(text(row, 6), region.zone);
    }
    EXPECT_EQ(sqlite3_step(row.get()), SQLITE_DONE);
}

TEST_F(ShippedDatabase, HasTheTablesAndColumnsOfTheCityQuery) {
    const std::pair<const char*, const char*> tables[] = {
        {"CITY", "ID NAME LAT LON TEMKIN PARENT "},
        {"CITY_PARENT", "PARENT NAME GMT CID DSTID "},
        {"COUNTRY", "CID NAMEEN NAMETR "},
        {"DST", "DSTID DST STARTMONTH STARTDAY STOPMONTH STOPDAY HOUR "},
    };
    for (const auto& [table, columns] : tables) {
        const Statement row = query(std::string("SELECT name, pk FROM pragma_table_info('") + table + "')");
        std::string found;
        for (int i = 0; sqlite3_step(row.get()) == SQLITE_ROW; ++i) {
            found += text(row, 0) + " ";
            EXPECT_EQ(sqlite3_column_int(row.get(), 1), i == 0 ? 1 : 0) << table << ": the first column is the key";
        }
        EXPECT_EQ(found, columns);
    }
}

TEST_F(ShippedDatabase, HasOneParentForEachRegionAndZone) {
    EXPECT_EQ(count("SELECT count(*) FROM CITY_PARENT"), count("SELECT count(DISTINCT PARENT) FROM CITY"));
    EXPECT_EQ(count("SELECT count(*) FROM (SELECT DISTINCT P.CID, F.CODE, F.ZONE FROM CITY_PARENT P JOIN PARENT_FACT F "
                    "USING (PARENT))"),
              count("SELECT count(*) FROM CITY_PARENT"));
}

TEST_F(ShippedDatabase, IdsAreGeoNamesOrDerivedAndFitThirtyTwoBits) {
    const std::vector<int> all = ids();
    EXPECT_EQ(std::count_if(all.begin(), all.end(), [](int id) { return id >= places::firstDerivedId; }), 24571);
    EXPECT_EQ(std::count_if(all.begin(), all.end(), [](int id) { return id > 0 && id < 20'000'000; }), 146498);
    EXPECT_EQ(std::set<int>(all.begin(), all.end()).size(), all.size());
}

TEST_F(ShippedDatabase, RegionsAgreeWithTheirZones) {
    EXPECT_EQ(count("SELECT count(*) FROM CITY_PARENT P JOIN PARENT_FACT F ON F.PARENT = P.PARENT JOIN ZONE Z ON "
                    "Z.ZONE = F.ZONE "
                    "WHERE P.GMT <> Z.GMT OR P.DSTID <> Z.DSTID"),
              0);
}

TEST_F(ShippedDatabase, EveryCityCanBeSearchedByItsName) {
    EXPECT_EQ(count("SELECT count(*) FROM CITY WHERE ID NOT IN (SELECT ID FROM CITY_NAME WHERE KIND = 0)"), 0);
    EXPECT_EQ(count("SELECT count(*) FROM OTHER_NAME WHERE ID NOT IN (SELECT ID FROM CITY)"), 0);
    EXPECT_EQ(count("SELECT count(*) FROM CITY_POINT"), 146498 + 24571);
}

TEST_F(ShippedDatabase, IsSoundToSqliteItself) {
    const Statement row = query("PRAGMA integrity_check");
    ASSERT_EQ(sqlite3_step(row.get()), SQLITE_ROW);
    EXPECT_EQ(text(row, 0), "ok");
}

}  // namespace
}  // namespace quode
