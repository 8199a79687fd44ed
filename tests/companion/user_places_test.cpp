// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/user_places.h"

#include <gmock/gmock.h>

#include "common/GlobalFuncs.h"
#include "common/civil_date.h"
#include "fixture.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"

namespace quode::test {
namespace {

using testing::HasSubstr;

class UserPlacesTest : public CompanionTest {
  protected:
    std::string refusalOf(const NewPlace& place) {
        try {
            open().addPlace(place);
        } catch (const UserDatabaseError& error) {
            EXPECT_EQ(error.reason(), UserDatabaseError::Reason::refused);
            return error.what();
        }
        return "";
    }
    const NewPlace hut{"Hütte am See", 47.5, 11.25};
};

TEST_F(UserPlacesTest, HaveANegativeNumberAndTheZoneOfTheNearestPlace) {
    UserDatabase database = open();
    const int id = database.addPlace(hut);
    EXPECT_LT(id, 0);
    EXPECT_EQ(listOf(database), "Istanbul* Hütte am See");
    const CityRecord place = *database.cities().at(1).city;
    EXPECT_EQ(place.id, id);
    EXPECT_EQ(place.latitude, 47.5);
    EXPECT_EQ(place.longitude, 11.25);
    EXPECT_EQ(place.zone, "Europe/Berlin");
    EXPECT_EQ(place.countryCode, "DE");
    EXPECT_EQ(place.rule, cities.search("Munich").at(0).city.rule);
    EXPECT_TRUE(place.temkin);
}

TEST_F(UserPlacesTest, AreAddedOnce) {
    UserDatabase database = open();
    const int id = database.addPlace(hut);
    EXPECT_EQ(database.addPlace(hut), id) << "the user tries again after a command that was cut off";
    EXPECT_EQ(database.cities().size(), 2U);
    EXPECT_NE(database.addPlace({hut.name, 40.0, 11.25}), id);
}

TEST_F(UserPlacesTest, TakeAZoneThatTheUserNames) {
    UserDatabase database = open();
    const int id = database.addPlace({"Border post", 47.5, 11.25, "Asia/Tokyo"});
    EXPECT_EQ(userPlace(file(), cities, id)->zone, "Asia/Tokyo");
    EXPECT_EQ(userPlace(file(), cities, id)->rule.gmt, 9.0);
}

TEST_F(UserPlacesTest, BehaveLikeAnyCity) {
    UserDatabase database = open();
    const int id = database.addPlace(hut);
    database.chooseHome(id);
    EXPECT_EQ(database.home()->city->name, "Hütte am See");
    EXPECT_EQ(database.refreshPrayerTimes().size(), 6U);
    database.moveCity(id, 0);
    EXPECT_EQ(listOf(open()), "Hütte am See* Istanbul");
    EXPECT_FALSE(database.addCity(id));
    const int second = database.addPlace({"Boat", -33.0, 151.9});
    EXPECT_NE(second, id);
    database.removeCity(id);
    EXPECT_EQ(listOf(database), "Istanbul* Boat");
    EXPECT_FALSE(userPlace(file(), cities, id)) << "a place that is removed is forgotten";
}

TEST_F(UserPlacesTest, FillACityOfTheWidget) {
    UserDatabase database = open();
    const int id = database.addPlace({"Point Nemo", -48.8767, -123.3933});
    Platform platform = FakePlatform().platform();
    platform.files = posixFiles();
    platform.dataFolder = folder.path();
    GlobalFuncs& services = GlobalFuncs::startUp(platform);
    services.setApplicationBundlePath(QUODE_BUNDLE);
    City city;
    city.setCityId(std::to_string(id));
    city.getAllCityInfo(city);
    EXPECT_EQ(city.name(), "Point Nemo");
    EXPECT_EQ(city.latitude(), "-48.876700");
    EXPECT_EQ(city.longitude(), "-123.393300");
    EXPECT_EQ(city.temkin(), "1");
    EXPECT_FALSE(city.GMT().empty());
    // The city of the widget has the clock of the day for which it was read, nothing beyond it.
    Site expected = siteOf(*userPlace(file(), cities, id));
    expected.rule = expected.clock().ruleOn(civilDate(services.GetCurrentDateTime()));
    expected.known = nullptr;
    EXPECT_EQ(siteOf(city), expected);

    City unknown;
    unknown.setCityId("-999");
    unknown.getAllCityInfo(unknown);
    EXPECT_EQ(unknown.name(), "");
}

TEST_F(UserPlacesTest, FillACityExactlyAsTheCityDatabaseDoes) {
    open();
    Platform platform = FakePlatform().platform();
    platform.files = posixFiles();
    platform.dataFolder = folder.path();
    GlobalFuncs::startUp(platform).setApplicationBundlePath(QUODE_BUNDLE);
    for (const char* name : {"Istanbul", "Kathmandu", "New York", "Sydney", "Dublin"}) {
        const CityRecord record = cities.search(name).at(0).city;
        City fromDatabase;
        fromDatabase.setCityId(std::to_string(record.id));
        fromDatabase.getAllCityInfo(fromDatabase);
        City fromRecord;
        fillCity(fromRecord, record, civilDate(GlobalFuncs::globalFuncs().GetCurrentDateTime()));
        EXPECT_EQ(fromRecord.latitude(), fromDatabase.latitude());
        EXPECT_EQ(fromRecord.GMT(), fromDatabase.GMT());
        EXPECT_EQ(fromRecord.countryNameTr(), fromDatabase.countryNameTr());
        EXPECT_EQ(siteOf(fromRecord), siteOf(fromDatabase)) << name;
    }
}

TEST_F(UserPlacesTest, AreRefusedWhenTheyMakeNoSense) {
    EXPECT_THAT(refusalOf({"Nowhere", 91.0, 0.0}), HasSubstr("latitudes"));
    EXPECT_THAT(refusalOf({"Nowhere", 0.0, -181.0}), HasSubstr("longitudes"));
    EXPECT_THAT(refusalOf({"Nowhere", std::nan(""), 0.0}), HasSubstr("out of range"));
    EXPECT_THAT(refusalOf({"  ", 10.0, 10.0}), HasSubstr("name"));
    EXPECT_THAT(refusalOf({"Moon", 10.0, 10.0, "Moon/Tranquility"}), HasSubstr("Europe/Istanbul"));
    EXPECT_EQ(listOf(open()), "Istanbul*");
}

TEST_F(UserPlacesTest, ReachFromPoleToPole) {
    UserDatabase database = open();
    database.addPlace({"North Pole", 90.0, 0.0});
    database.addPlace({"South Pole", -90.0, 180.0});
    EXPECT_EQ(listOf(database), "Istanbul* North Pole South Pole");
}

}  // namespace
}  // namespace quode::test
