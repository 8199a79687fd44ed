// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/user_choices.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <optional>
#include <utility>

#include "alarms/DatabaseFunctions.h"
#include "app/user_data.h"
#include "companion/UserDatabase.h"
#include "companion/UserSettings.h"
#include "data/user_places.h"
#include "host/places.h"
#include "support/environment_of.h"
#include "support/temporary_folder.h"

namespace quode::test {
namespace {

using app::Session;

class UserChoicesTest : public testing::Test {
  protected:
    Session session() {
        return Session(environmentOf({{"QUODE_DATA_DIR", folder.path().string()},
                                      {"QUODE_BUNDLE_DIR", QUODE_TEST_BUNDLE},
                                      {"QUODE_NOW", "2026-11-21T04:00:00Z"}}),
                       {});
    }
    UserDatabase open(Session& of) { return UserDatabase(of.dataFolder(), of.cities(), of.deviceClock()); }

    TemporaryFolder folder;
    UserEventStore calendar{folder.path(), CalendarLayout::ics};
};

TEST_F(UserChoicesTest, MakeTheDatabaseOfAFreshMachineWithTheCityOfItsZone) {
    Session fresh = session();
    EXPECT_EQ(host::prepareUserChoices(fresh, calendar).notice, "");
    const auto home = open(fresh).home();
    ASSERT_TRUE(home && home->city);
    EXPECT_EQ(home->city->zone, "Asia/Kathmandu");  // the zone that the tests run in
}

TEST_F(UserChoicesTest, TellHowToChooseACityWhenThereIsNone) {
    Session fresh = session();
    {
        UserDatabase database = open(fresh);
        for (const UserCity& city : database.cities()) database.removeCity(city.id);
    }
    EXPECT_EQ(host::prepareUserChoices(fresh, calendar).notice, "Choose your city from the menu.");
}

TEST_F(UserChoicesTest, TellThatTheHomeCityIsNotInTheDatabaseAnyMore) {
    Session fresh = session();
    fresh.services();
    open(fresh);
    ASSERT_TRUE(DatabaseFunctions().executeSQL("UPDATE USER_CITY SET ID = 99999999"));
    const QString notice = host::prepareUserChoices(fresh, calendar).notice;
    EXPECT_TRUE(notice.contains("99999999") && notice.contains("quode city home")) << notice.toStdString();
}

TEST_F(UserChoicesTest, TellTheHomeCity) {
    Session fresh = session();
    EXPECT_EQ(host::homeName(fresh), "");
    {
        UserDatabase database = open(fresh);
        database.addCity(istanbul);
        database.chooseHome(istanbul);
    }
    EXPECT_EQ(host::homeName(fresh), "Istanbul");
    std::ofstream(userDatabaseFile(folder.path())) << std::string(5000, 'x');
    EXPECT_EQ(host::homeName(fresh), "");
}

TEST_F(UserChoicesTest, TellThatADamagedDatabaseWasKeptAside) {
    std::ofstream(userDatabaseFile(folder.path())) << std::string(5000, 'x');
    Session damaged = session();
    const QString notice = host::prepareUserChoices(damaged, calendar).notice;
    EXPECT_TRUE(notice.contains("damaged")) << notice.toStdString();
    EXPECT_TRUE(open(damaged).home());
}

TEST_F(UserChoicesTest, HaveTheAlarmsRingAfterTheNextLoginOnceOneIsOn) {
    const std::filesystem::path home = folder.path() / "home";
    Session fresh(
        environmentOf(
            {{"HOME", home.string()}, {"XDG_CONFIG_DIRS", "/nonexistent"}, {"QUODE_BUNDLE_DIR", QUODE_TEST_BUNDLE}}),
        {});
    UserEventStore events(fresh.dataFolder(), CalendarLayout::ics);
    host::prepareUserChoices(fresh, events);
    EXPECT_EQ(host::assureAlarmsAfterLogin(fresh), "") << "no alarm is on";
    DatabaseFunctions().reCalculateAlarm(203);
    const QString told = host::assureAlarmsAfterLogin(fresh);
    EXPECT_TRUE(told.contains("login")) << told.toStdString();
}

TEST_F(UserChoicesTest, BringThePrayerTimesOfTheAlarmsUpToDate) {
    Session fresh = session();
    host::prepareUserChoices(fresh, calendar);
    for (const UserAlarm& alarm : open(fresh).alarms()) EXPECT_GT(alarm.prayTime, 0.0) << alarm.code;
}

TEST_F(UserChoicesTest, FollowTheLayoutOfTheCalendar) {
    Session fresh = session();
    {
        UserDatabase database = open(fresh);
        UserSettings settings;
        settings.calendarLayout = CalendarLayout::vdir;
        saveSettings(database, settings);
    }
    host::prepareUserChoices(fresh, calendar);
    EXPECT_EQ(calendar.layout(), CalendarLayout::vdir);
}

TEST_F(UserChoicesTest, TellTheLayoutOfThePanel) {
    Session fresh = session();
    EXPECT_EQ(host::chosenLayout(fresh), PanelLayout::automatic);
    {
        UserDatabase database = open(fresh);
        UserSettings settings;
        settings.panelLayout = PanelLayout::tablet;
        saveSettings(database, settings);
    }
    EXPECT_EQ(host::chosenLayout(fresh), PanelLayout::tablet);
}

// Another program keeps the database to itself. The panel's main thread asks, so that none may wait for long.
TEST_F(UserChoicesTest, WaitAtMostAFifthOfASecondForALockedDatabase) {
    Session fresh = session();
    host::prepareUserChoices(fresh, calendar);
    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(userDatabaseFile(folder.path()).c_str(), &opened), SQLITE_OK);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> other(opened, sqlite3_close);
    ASSERT_EQ(sqlite3_exec(opened, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto waited = [](const auto& action) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_NE(action(), QString());
        return std::chrono::steady_clock::now() - start;
    };
    using namespace std::chrono_literals;
    constexpr auto longest = 200ms + 150ms;  // and what the work itself may take on a busy machine
    EXPECT_LT(waited([&] { return host::chooseColorScheme(fresh, 3); }), longest);
    EXPECT_LT(waited([&] { return host::makeHome(fresh, istanbul); }), longest);
    EXPECT_LT(waited([&] { return host::rememberRows(fresh, {true, false}); }), longest);
}

// What the widget, its marks and its texts read one after the other belongs together.
TEST_F(UserChoicesTest, CannotBeLockedOrChangedByOthersWhileTheyAreHeld) {
    Session fresh = session();
    EXPECT_FALSE(host::prepareUserChoices(fresh, calendar).isLocked);
    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(userDatabaseFile(folder.path()).c_str(), &opened), SQLITE_OK);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> other(opened, sqlite3_close);
    const auto lock = [&] { return sqlite3_exec(opened, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr); };
    {
        const host::HeldChoices held(fresh);
        EXPECT_FALSE(held.isLocked());
        EXPECT_EQ(lock(), SQLITE_BUSY);
        EXPECT_NE(host::shownChoices(fresh), "");
    }
    ASSERT_EQ(lock(), SQLITE_OK);
    EXPECT_TRUE(host::HeldChoices(fresh).isLocked());
    EXPECT_TRUE(host::prepareUserChoices(fresh, calendar).isLocked);
    EXPECT_EQ(host::shownChoices(fresh), "");
}

TEST_F(UserChoicesTest, AreReadAsTheyAreNowWhileTheFileStaysOpen) {
    Session user = session();
    host::makeUserDatabase(user, *user.cities().city(istanbul));
    const app::OpenUserData reading(user);
    EXPECT_EQ(host::homeName(user), "Istanbul");
    {
        UserDatabase database = open(user);
        database.addCity(paris);
        database.chooseHome(paris);
    }
    EXPECT_EQ(host::homeName(user), "Paris");
    const std::filesystem::path file = userDatabaseFile(folder.path());
    std::filesystem::rename(file, file.string() + ".old");
    EXPECT_EQ(host::homeName(user), "");
    host::makeUserDatabase(user, *user.cities().city(istanbul));
    EXPECT_EQ(host::homeName(user), "Istanbul");
}

// The lock of those that are held ends with them, though others go on reading from the same open file.
TEST_F(UserChoicesTest, CanBeChangedOnceTheyAreNoLongerHeldWhileTheFileStaysOpen) {
    Session user = session();
    host::makeUserDatabase(user, *user.cities().city(istanbul));
    const app::OpenUserData reading(user);
    std::optional<host::HeldChoices> held(std::in_place, user);
    EXPECT_EQ(host::chooseColorScheme(user, 3),
              "The user database " + QString::fromStdString(userDatabaseFile(folder.path()).string()) +
                  " is locked by another program. Close that program, or try again in a moment.");
    held.reset();
    EXPECT_EQ(host::chooseColorScheme(user, 3), "");
    EXPECT_EQ(host::chosenColorScheme(user), 3);
}

TEST_F(UserChoicesTest, FollowTheLanguageOfTheSettings) {
    Session fresh = session();
    fresh.services();
    open(fresh);
    const auto speak = [&](const std::string& language) {
        {
            UserDatabase database = open(fresh);
            UserSettings settings = loadSettings(database);
            settings.language = language;
            saveSettings(database, settings);
        }
        host::followLanguage(fresh, {});
        return fresh.prayerName(202) + " " + fresh.monthName(3);
    };
    EXPECT_EQ(speak("tr"), "Öğle Mart");
    EXPECT_EQ(speak("de"), "Dhuhr März");
    EXPECT_EQ(speak("auto"), "Dhuhr March");
    EXPECT_NE(host::shownChoices(fresh).find("auto"), std::string::npos) << "an open panel is presented again";
    speak("tr");
    host::followLanguage(fresh, "en");
    EXPECT_EQ(fresh.prayerName(202), "Dhuhr") << "--lang comes first";
}

TEST_F(UserChoicesTest, AreUnknownButNoObstacleWithoutTheCities) {
    Session intact = session();
    open(intact).addCity(istanbul);
    Session broken(environmentOf({{"QUODE_DATA_DIR", folder.path().string()},
                                  {"QUODE_BUNDLE_DIR", folder.path().string()},
                                  {"QUODE_NOW", "2026-11-21T04:00:00Z"}}),
                   {});
    EXPECT_EQ(host::chosenLayout(broken), PanelLayout::automatic);
    EXPECT_EQ(host::homeName(broken), "");
    EXPECT_TRUE(host::prepareUserChoices(broken, calendar).notice.contains("Install Quode again"));
}

TEST_F(UserChoicesTest, PutOneCityIntoADatabaseOfItsOwn) {
    Session fresh = session();
    host::makeUserDatabase(fresh, *fresh.cities().city(istanbul));
    const std::vector<UserCity> cities = open(fresh).cities();
    ASSERT_EQ(cities.size(), 1U);
    EXPECT_EQ(cities[0].id, istanbul);
    EXPECT_TRUE(cities[0].isHome);
}

TEST_F(UserChoicesTest, KeepAGuessOfADatabaseOfItsOwnMarkedAsOne) {
    Session fresh = session();
    const auto guess = fresh.cities().largestCityOfZone(fresh.systemZone());
    ASSERT_TRUE(guess);
    host::makeUserDatabase(fresh, *guess, true);
    const auto home = open(fresh).home();
    ASSERT_TRUE(home);
    EXPECT_EQ(home->id, guess->id);
    EXPECT_TRUE(home->isGuess);
}

TEST_F(UserChoicesTest, PutAPointIntoADatabaseOfItsOwn) {
    Session fresh = session();
    CityRecord point = *fresh.cities().city(istanbul);
    point.id = 0;
    point.name = "A point";
    point.latitude = 41.5;
    host::makeUserDatabase(fresh, point);
    const std::vector<UserCity> cities = open(fresh).cities();
    ASSERT_EQ(cities.size(), 1U);
    EXPECT_EQ(cities[0].city->name, "A point");
    EXPECT_EQ(cities[0].city->latitude, 41.5);
    EXPECT_EQ(cities[0].city->zone, "Europe/Istanbul");
}

}  // namespace
}  // namespace quode::test
