// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/City.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>

#include "common/GlobalFuncs.h"
#include "data/city_day.h"
#include "data/tzif_writer.h"
#include "data/write_file.h"
#include "support/fake_platform.h"

namespace quode {
namespace {

using test::TemporaryFolder;

class CityTest : public testing::Test {
  protected:
    CityTest() { useBundle(QUODE_BUNDLE); }

    GlobalFuncs& services = GlobalFuncs::startUp(test::FakePlatform().platform());

    void useBundle(const std::filesystem::path& bundle) { services.setApplicationBundlePath(bundle.string()); }

    // A bundle with a database made by these statements.
    static void makeDatabase(const TemporaryFolder& bundle, const std::string& sql) {
        std::filesystem::create_directories(bundle.path() / "database");
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open((bundle.path() / "database/cities.sqlite").c_str(), &database), SQLITE_OK);
        char* error = nullptr;
        EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK) << error;
        sqlite3_close(database);
    }

    static City cityWithId(const std::string& id) {
        City city;
        city.setCityId(id);
        return city;
    }

    // A city with marks in all fields, to see which ones stay.
    static City markedCity(const std::string& id) {
        City city = cityWithId(id);
        city.setName("n");
        city.setNameParent("p");
        city.setLatitude("la");
        city.setLongitude("lo");
        city.setCountryNameEn("en");
        city.setCountryNameTr("tr");
        city.setGMT("g");
        city.setDST("d");
        city.setStartMonth("1");
        city.setStartDay("2");
        city.setStopMonth("3");
        city.setStopDay("4");
        city.setHour("5");
        city.setTemkin("6");
        return city;
    }

    static std::string facts(const City& city) {
        std::string all;
        for (const std::string& fact :
             {city.name(), city.nameParent(), city.latitude(), city.longitude(), city.countryNameEn(),
              city.countryNameTr(), city.GMT(), city.DST(), city.startMonth(), city.startDay(), city.stopMonth(),
              city.stopDay(), city.hour(), city.temkin()}) {
            all += fact + "|";
        }
        return all;
    }

    static constexpr const char* marks = "n|p|la|lo|en|tr|g|d|1|2|3|4|5|6|";
};

constexpr const char* smallDatabase =
    "CREATE TABLE CITY (ID INTEGER PRIMARY KEY, NAME, LAT, LON, TEMKIN, PARENT);"
    "CREATE TABLE CITY_PARENT (PARENT INTEGER PRIMARY KEY, NAME, GMT, CID, DSTID);"
    "CREATE TABLE COUNTRY (CID INTEGER PRIMARY KEY, NAMEEN, NAMETR);"
    "CREATE TABLE DST (DSTID INTEGER PRIMARY KEY, DST, STARTMONTH, STARTDAY, STOPMONTH, STOPDAY, HOUR);"
    "INSERT INTO CITY VALUES (7, 'Köy', '41;30;36', '-0;30;0', 0, 5);"
    "INSERT INTO CITY VALUES (8, NULL, '', '41;30', NULL, 5);"
    "INSERT INTO CITY_PARENT VALUES (5, 'Bölge', '5.5', 3, 2);"
    "INSERT INTO COUNTRY VALUES (3, 'Land', 'Ülke');"
    "INSERT INTO DST VALUES (2, 1, 2, 35, 9, 36, 1);";

TEST_F(CityTest, IsEmptyWhenCreated) {
    const City city;
    EXPECT_EQ(city.cityId(), "");
    EXPECT_EQ(city.name(), "");
    EXPECT_EQ(city.temkin(), "");
    EXPECT_EQ(city.getQiblaAngle(), 0.0);
    EXPECT_EQ(city.getMagneticVariation(), 0.0);
    EXPECT_EQ(city.getRelevantPrayerTime(200), 0.0);
    EXPECT_EQ(city.getSomeAstroInfo().SunRise, 0.0);
}

TEST_F(CityTest, KeepsTheSkySummaryUnchanged) {
    City city;
    city.setSomeAstroIfo({6.5, 18.25, -1650.0, 20.0, 7.75});
    const WidgetSkyInfo info = city.getSomeAstroInfo();
    EXPECT_EQ(info.SunRise, 6.5);
    EXPECT_EQ(info.SunSet, 18.25);
    EXPECT_EQ(info.MoonRise, -1650.0);
    EXPECT_EQ(info.MoonSet, 20.0);
    EXPECT_EQ(info.MoonAltitudeOnSunSet, 7.75);
}

// Cuba keeps summer time through the winter of 2026/27, against its yearly rule.
TEST_F(CityTest, HasTheClockOfTheDayForWhichItIsRead) {
    test::FakePlatform device;
    GlobalFuncs::startUp(device.platform()).setApplicationBundlePath(QUODE_BUNDLE);
    const auto havanaOn = [&device](int year, int month, int day) {
        device.clock->show(year, month, day, 12, 0, 0);
        City city = cityWithId("3553478");
        city.getAllCityInfo(city);
        computeCity(city, VAKDateMake(day, month, year, 0, 0, 0));
        return city.GMTStr();
    };
    EXPECT_EQ(havanaOn(2026, 10, 15), "(-) 04:00 ☀");
    EXPECT_EQ(havanaOn(2027, 1, 15), "(-) 04:00 ☀");
    EXPECT_EQ(havanaOn(2028, 1, 15), "(-) 05:00");
}

TEST_F(CityTest, FollowsZoneDataOfTheMachineThatAreNewer) {
    const TemporaryFolder folder;
    test::writeFile(folder, "tzdata.zi", "# version 2031a\n");
    test::writeFile(folder, "Europe/Istanbul", test::tzif(4 * 3600, {}, "<+04>-4"));
    Platform platform = test::FakePlatform().platform();
    platform.zoneFolder = folder.path().string();
    GlobalFuncs::startUp(platform).setApplicationBundlePath(QUODE_BUNDLE);
    City city = cityWithId("745044");
    city.getAllCityInfo(city);
    EXPECT_EQ(city.GMT(), "4");
    EXPECT_EQ(city.DST(), "0");
}

TEST_F(CityTest, KeepsAngles) {
    City city;
    city.setQiblaAngle(151.6);
    city.setMagneticVariation(-5.9);
    EXPECT_EQ(city.getQiblaAngle(), 151.6);
    EXPECT_EQ(city.getMagneticVariation(), -5.9);
}

TEST_F(CityTest, PrayerCodesDoNotRunParallelToTheTimes) {
    PrayTimes times;
    for (int slot = 0; slot < PrayTimes::slotCount; ++slot) times.slot(slot) = 100.0 + slot;
    City city;
    city.setPrayerTimes(times);
    const std::pair<int, int> slotOfCode[] = {{200, 0}, {201, 1}, {202, 2}, {203, 3}, {204, 4},
                                              {205, 5}, {206, 8}, {207, 6}, {208, 9}};
    for (const auto& [code, slot] : slotOfCode) EXPECT_EQ(city.getRelevantPrayerTime(code), 100.0 + slot) << code;
}

TEST_F(CityTest, OtherPrayerCodesGiveZero) {
    PrayTimes times;
    for (int slot = 0; slot < PrayTimes::slotCount; ++slot) times.slot(slot) = 1.0;
    City city;
    city.setPrayerTimes(times);
    for (const int code : {199, 209, 0, -1, 300}) EXPECT_EQ(city.getRelevantPrayerTime(code), 0.0) << code;
}

TEST_F(CityTest, MissingPrayerTimesKeepTheirMark) {
    PrayTimes times;
    times.Imsak = missingTime;
    City city;
    city.setPrayerTimes(times);
    EXPECT_EQ(city.getRelevantPrayerTime(200), -1.0);
}

TEST_F(CityTest, ChangeTemkinSwitches) {
    const std::pair<const char*, const char*> cases[] = {{"0", "1"},  {"1", "0"},    {"2", "0"},
                                                         {"", "1"},   {"-1", "0"},   {"x", "1"},
                                                         {"1x", "0"}, {" 00 ", "1"}, {"99999999999999999999", "0"}};
    for (const auto& [before, after] : cases) {
        City city;
        city.setTemkin(before);
        city.changeTemkin();
        EXPECT_EQ(city.temkin(), after) << before;
    }
}

TEST_F(CityTest, EveryFactHasItsOwnPlace) {
    City city;
    city.setCountryId("1");
    city.setSetAsHome("2");
    city.setSetAsAlarm("3");
    city.setAlter_Lat("4");
    city.setAlter_Lon("5");
    city.setCountryId1("6");
    city.setCountryId2("7");
    city.setGMTStr("8");
    city.setLatitudeStr("9");
    city.setLongitudeStr("10");
    EXPECT_EQ(city.countryId() + city.setAsHome() + city.setAsAlarm() + city.alter_Lat() + city.alter_Lon() +
                  city.countryId1() + city.countryId2() + city.GMTStr() + city.latitudeStr() + city.longitudeStr(),
              "12345678910");
    EXPECT_EQ(facts(markedCity("1")), marks);
}

TEST_F(CityTest, IsFilledColumnByColumn) {
    const TemporaryFolder bundle;
    makeDatabase(bundle, smallDatabase);
    useBundle(bundle.path());
    City city = markedCity("7");
    city.getAllCityInfo(city);
    EXPECT_EQ(facts(city), "Köy|Bölge|41.510000|-0.500000|Land|Ülke|5.5|1|2|35|9|36|1|0|");
    EXPECT_EQ(city.cityId(), "7");
}

TEST_F(CityTest, ColumnsWithoutAValueReadAsEmptyTexts) {
    const TemporaryFolder bundle;
    makeDatabase(bundle, smallDatabase);
    useBundle(bundle.path());
    City city = markedCity("8");
    city.getAllCityInfo(city);
    EXPECT_EQ(facts(city), "|Bölge|0.000000|41.008333|Land|Ülke|5.5|1|2|35|9|36|1||");
}

TEST_F(CityTest, AnyCityFillsAnyOther) {
    const TemporaryFolder bundle;
    makeDatabase(bundle, smallDatabase);
    useBundle(bundle.path());
    const City filler = markedCity("8");
    City city = cityWithId("7");
    filler.getAllCityInfo(city);
    EXPECT_EQ(city.name(), "Köy");
    EXPECT_EQ(facts(filler), marks);
}

TEST_F(CityTest, TheIdIsTheNumberThatItsTextBeginsWith) {
    const TemporaryFolder bundle;
    makeDatabase(bundle, smallDatabase);
    useBundle(bundle.path());
    for (const char* id : {"7", " 7", "7abc", "07", "7.9"}) {
        City city = cityWithId(id);
        city.getAllCityInfo(city);
        EXPECT_EQ(city.name(), "Köy") << id;
    }
}

TEST_F(CityTest, AnUnknownIdLeavesEveryFieldAsItWas) {
    for (const char* id : {"", "0", "-1", "x", "123456789", "99999999999999999999", "1 OR 1=1"}) {
        City city = markedCity(id);
        city.getAllCityInfo(city);
        EXPECT_EQ(facts(city), marks) << id;
    }
}

TEST_F(CityTest, ACityWithoutItsRegionCountryOrRuleIsUnknown) {
    for (const char* table : {"CITY_PARENT", "COUNTRY", "DST"}) {
        const TemporaryFolder bundle;
        makeDatabase(bundle, std::string(smallDatabase) + "DELETE FROM " + table);
        useBundle(bundle.path());
        City city = markedCity("7");
        city.getAllCityInfo(city);
        EXPECT_EQ(facts(city), marks) << table;
    }
}

TEST_F(CityTest, AMissingDatabaseIsPassedOverAndNotCreated) {
    const TemporaryFolder bundle;
    useBundle(bundle.path());
    City city = markedCity("7");
    city.getAllCityInfo(city);
    EXPECT_EQ(facts(city), marks);
    std::filesystem::create_directories(bundle.path() / "database");
    city.getAllCityInfo(city);
    EXPECT_EQ(facts(city), marks);
    EXPECT_TRUE(std::filesystem::is_empty(bundle.path() / "database"));
}

TEST_F(CityTest, ADamagedDatabaseIsPassedOver) {
    const TemporaryFolder bundle;
    useBundle(bundle.path());
    for (const std::string& content : {std::string(), std::string("no database"), std::string(100000, '\0')}) {
        test::writeFile(bundle, "database/cities.sqlite", content);
        City city = markedCity("7");
        city.getAllCityInfo(city);
        EXPECT_EQ(facts(city), marks);
    }
}

TEST_F(CityTest, ADatabaseWithoutTheTablesIsPassedOver) {
    const TemporaryFolder bundle;
    makeDatabase(bundle, "CREATE TABLE CITY (ID INTEGER)");
    useBundle(bundle.path());
    City city = markedCity("7");
    city.getAllCityInfo(city);
    EXPECT_EQ(facts(city), marks);
}

TEST_F(CityTest, ReadsTheShippedDatabase) {
    City city = cityWithId("745044");
    city.getAllCityInfo(city);
    EXPECT_EQ(facts(city), "Istanbul|Istanbul|41.013840|28.949660|Turkey|Türkiye|3|0|0|0|0|0|0|1|");
    City berlin = cityWithId("2950159");
    berlin.getAllCityInfo(berlin);
    EXPECT_EQ(berlin.name(), "Berlin");
    EXPECT_EQ(berlin.startMonth() + "/" + berlin.startDay() + " " + berlin.stopMonth() + "/" + berlin.stopDay(),
              "2/35 9/35");
}

}  // namespace
}  // namespace quode
