// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Processes that are killed, disks that are full, databases that are locked or damaged.
#include <sqlite3.h>

#include <fstream>

#include "companion/SiteChoices.h"
#include "companion/user_connection.h"
#include "keeper_fixture.h"

namespace quode::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class KeeperFaultsTest : public AlarmKeeperTest {};

// --- killed at any moment

TEST_F(KeeperFaultsTest, RepeatsARingThatMayNotHaveBeenSeen) {
    switchOn(202);
    keeper->wake();
    clock->present = dueOf(202);
    desk.beforeRing = [] { throw std::runtime_error("killed"); };  // after the note, before the notification
    keeper->wake();
    EXPECT_THAT(desk.rings, IsEmpty());
    desk.beforeRing = nullptr;
    restart();
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
    restart();
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperFaultsTest, TakesOverARingThatWasShownButNotNoted) {
    const sys_seconds due = plannedRing(202);
    clock->present = due;
    // From the notification on nothing reaches the database, as if the process had been killed then.
    desk.beforeRing = [this] { disk.emplace(FaultyDisk::Fault::full, 1); };
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
    disk.emplace(FaultyDisk::Fault::none);
    restart();
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
    keeper->snooze(shownAs(1));
    runUntil(due + minutes(6));
    EXPECT_EQ(desk.rings.size(), 1U + 1U);
}

// --- faults

TEST_F(KeeperFaultsTest, RingsOnceOnAFullDisk) {
    const sys_seconds due = plannedRing(202);
    disk.emplace(FaultyDisk::Fault::full, 1);
    for (int second = 0; second < 90; second += 30) {
        clock->present = due + seconds(second);
        EXPECT_LE(keeper->wake(), clock->present + seconds(30)) << "it tries again";
    }
    EXPECT_EQ(desk.rings.size(), 1U);
    EXPECT_THAT(told, HasSubstr("the disk is full"));
    EXPECT_EQ(told.find("disk is full", told.find("disk is full") + 1), std::string::npos) << "it is reported once";
    disk.emplace(FaultyDisk::Fault::none);
    keeper->wake();
    restart();
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U) << "the note was written once there was room";
}

TEST_F(KeeperFaultsTest, SnoozesOnAFullDisk) {
    switchOn(202);
    keeper->wake();
    clock->present = dueOf(202);
    disk.emplace(FaultyDisk::Fault::full, 1);
    keeper->wake();
    keeper->snooze(shownAs(1));
    clock->present += minutes(5);
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(KeeperFaultsTest, RingsLateWhenAnotherProgramHeldTheLock) {
    const sys_seconds due = plannedRing(202);
    sqlite3* opened = nullptr;
    sqlite3_open((folder.path() / "user.sqlite").c_str(), &opened);
    const sqlite::Database other(opened);
    sqlite3_exec(opened, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    clock->present = due;
    EXPECT_EQ(keeper->wake(), due + seconds(30)) << "it tries again";
    EXPECT_THAT(told, HasSubstr("locked by another program"));
    sqlite3_exec(opened, "COMMIT", nullptr, nullptr, nullptr);
    clock->present += seconds(90);
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperFaultsTest, GoesOnWithAFreshDatabaseAfterDamage) {
    switchOn(202);
    keeper->wake();
    std::filesystem::resize_file(folder.path() / "user.sqlite", 5000);
    keeper->wake();
    EXPECT_THAT(told, HasSubstr("user.sqlite.damaged-1"));
    switchOn(202);
    runUntil(dueOf(202));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperFaultsTest, RingsWithoutANotificationService) {
    desk.hasService = false;
    switchOn(202);
    runUntil(dueOf(202) + minutes(2));
    EXPECT_EQ(desk.sounds.size(), 1U);
    restart();
    keeper->wake();
    EXPECT_EQ(desk.sounds.size(), 1U);
}

// --- a database that cannot be read

TEST_F(KeeperFaultsTest, RingsWhatItKnowsWhileTheDatabaseIsLocked) {
    const sys_seconds due = plannedRing(202);
    const auto other = lockDatabase();
    wakeAt(due);
    EXPECT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.warnings, "");
    wakeAt(due + minutes(2));
    EXPECT_THAT(desk.warnings, HasSubstr("is locked by another program"));
    EXPECT_THAT(desk.warnings, HasSubstr("The alarms ring as they were set before"));
    const std::string warned = desk.warnings;
    wakeAt(due + minutes(4));
    EXPECT_EQ(desk.warnings, warned) << "it is said once";
}

TEST_F(KeeperFaultsTest, RingsWhatItNotedWhenItStartsWithALockedDatabase) {
    const sys_seconds due = plannedRing(202);
    const auto other = lockDatabase();
    restart();
    EXPECT_LE(keeper->wake(), due);
    wakeAt(due);
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].city, "Istanbul");
}

TEST_F(KeeperFaultsTest, RingsAtAPlaceOfTheUsersOwnWhenItStartsWithALockedDatabase) {
    const int hut = open().addPlace({"Hut", 39.5, 32.25});
    open().chooseHome(hut);
    switchOn(202, 0, "gong");
    const sys_seconds due = dueOf(202);
    sqlite3* opened = nullptr;
    sqlite3_open((folder.path() / "user.sqlite").c_str(), &opened);
    const sqlite::Database other(opened);
    // It has begun a change, which nobody may see.
    sqlite3_exec(opened, "BEGIN EXCLUSIVE; UPDATE USER_ALARMS SET ACTIVE = 0", nullptr, nullptr, nullptr);
    restart();
    EXPECT_LE(keeper->wake(), due);
    wakeAt(due);
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].city, "Hut");
    EXPECT_EQ(desk.sounds, std::vector<std::string>{"gong"});
}

TEST_F(KeeperFaultsTest, RingsByTheMethodOfTheCityWhenItStartsWithALockedDatabase) {
    const int home = open().home()->id;
    UserDatabase database = open();
    const sys_seconds usual = dueOf(202);
    storeMethod(database.connection(), home, *conventions::methodOf("quode adjust=0,0,-20,0,0,0"), 0.0);
    switchOn(202);
    const auto other = lockDatabase();
    restart();
    EXPECT_EQ(keeper->wake(), clock->present + seconds(30));
    wakeAt(usual - minutes(20));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperFaultsTest, RingsByTheMethodThatItKnowsWhenTheStoredOneCannotBeRead) {
    const int home = open().home()->id;
    UserDatabase database = open();
    const sys_seconds usual = dueOf(202);
    storeMethod(database.connection(), home, *conventions::methodOf("quode adjust=0,0,-20,0,0,0"), 0.0);
    switchOn(202);
    keeper->wake();
    database.connection().run("UPDATE USER_METHOD SET METHOD = 'nonsense'");
    keeper->wake();
    EXPECT_THAT(told, HasSubstr("cannot be read"));
    wakeAt(usual - minutes(20));
    EXPECT_EQ(desk.rings.size(), 1U);
    wakeAt(usual);
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperFaultsTest, TellsWhichTimesHaveTheUsersOwnMinutes) {
    UserDatabase database = open();
    storeMethod(database.connection(), database.home()->id, *conventions::methodOf("quode adjust=0,0,-20,0,0,0"), 0.0);
    switchOn(202);
    switchOn(203);
    runUntil(dueOf(203));
    ASSERT_EQ(desk.rings.size(), 2U);
    EXPECT_TRUE(desk.rings[0].isAdjusted);
    EXPECT_FALSE(desk.rings[1].isAdjusted);
}

TEST_F(KeeperFaultsTest, SeesThatTheMethodOfTheHomeCityWasChanged) {
    switchOn(202);
    keeper->wake();
    EXPECT_FALSE(keeper->choicesChanged());
    UserDatabase database = open();
    storeMethod(database.connection(), database.home()->id, *conventions::methodOf("quode adjust=0,0,-20,0,0,0"), 0.0);
    EXPECT_TRUE(keeper->choicesChanged());
}

// Nobody but the user decides who is to ring.
TEST_F(KeeperFaultsTest, GivesBackTheChosenRingerAlthoughItDoesNotRing) {
    UserSettings settings;
    settings.ringer = Ringer::evolution;
    {
        UserDatabase database = open();
        saveSettings(database, settings);
    }
    switchOn(202);
    ringer = [](const UserSettings&) { return Ringer::quode; };
    restart();
    keeper->wake();
    std::filesystem::resize_file(folder.path() / "user.sqlite", 5000);
    keeper->wake();
    EXPECT_TRUE(open().alarm(202).isOn);
    EXPECT_EQ(loadSettings(open()).ringer, Ringer::evolution);
}

TEST_F(KeeperFaultsTest, GivesBackTheMethodsOfCitiesAfterDamage) {
    const int home = open().home()->id;
    {
        UserDatabase database = open();
        storeMethod(database.connection(), home, *conventions::methodOf("mwl asr=2"), 40.0);
    }
    switchOn(202);
    keeper->wake();
    std::filesystem::resize_file(folder.path() / "user.sqlite", 100);
    keeper->wake();
    EXPECT_EQ(conventions::textOf(open().home()->city->choice.method), "mwl asr=2");
}

TEST_F(KeeperFaultsTest, GivesBackWhatWasChosenAfterDamage) {
    const int ankara = cities.search("Ankara").at(0).city.id;
    open().addCity(ankara);
    open().addPlace({"Hut", 47.5, 11.25});
    open().chooseHome(ankara);
    switchOn(202, -10, "gong");
    keeper->wake();
    std::filesystem::resize_file(folder.path() / "user.sqlite", 5000);
    EXPECT_TRUE(keeper->choicesChanged());
    keeper->wake();
    EXPECT_THAT(desk.warnings, HasSubstr("was damaged. Your cities and alarms are as the alarm service knew them"));
    UserDatabase database = open();
    EXPECT_EQ(database.cities().size(), 3U);
    EXPECT_EQ(database.home()->id, ankara);
    EXPECT_TRUE(database.alarm(202).isOn);
    EXPECT_EQ(database.alarm(202).sound, "gong");
    EXPECT_EQ(calendar->events.size(), 1U) << "the event stays that of the alarm";
    runUntil(dueOf(202, -10));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperFaultsTest, GivesBackWhatWasChosenWhenAnotherProgramFoundTheDamage) {
    switchOn(202);
    keeper->wake();
    std::filesystem::resize_file(folder.path() / "user.sqlite", 5000);
    open();  // which makes a fresh database
    keeper->wake();
    EXPECT_TRUE(open().alarm(202).isOn);
}

TEST_F(KeeperFaultsTest, GivesNothingBackToAUserWhoDeletedTheDatabase) {
    switchOn(202);
    keeper->wake();
    std::filesystem::remove(folder.path() / "user.sqlite");
    keeper->wake();
    EXPECT_FALSE(open().alarm(202).isOn);
}

// --- chosen while no service ran

TEST_F(KeeperFaultsTest, WaitsForTheNextDayWithAnAlarmThatWasSwitchedOnTooLateWhileItWasDown) {
    const sys_seconds due = plannedRing(202);
    clock->present = due - minutes(5);
    DatabaseFunctions().deleteAlarm(202);
    clock->present = due + minutes(3);
    DatabaseFunctions().reCalculateAlarm(202);
    clock->present = due + minutes(5);
    restart();
    keeper->wake();
    EXPECT_THAT(desk.rings, IsEmpty());
}

TEST_F(KeeperFaultsTest, RingsLateForAnAlarmThatWasSwitchedOnInTimeWhileItWasDown) {
    keeper->wake();
    keeper->rest();
    switchOn(202);
    clock->present = dueOf(202) + minutes(5);
    restart();
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperFaultsTest, RingsLateAlthoughAnotherProgramDeletedTheEventWhileItWasDown) {
    switchOn(202);
    keeper->wake();
    clock->present = dueOf(202) + minutes(5);
    calendar->events.clear();
    restart();
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperFaultsTest, NamesTheCityForWhichASnoozedRingRang) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    runUntil(due);
    keeper->snooze(shownAs(1));
    const int ankara = cities.search("Ankara").at(0).city.id;
    open().addCity(ankara);
    open().chooseHome(ankara);
    restart();
    runUntil(due + minutes(5));
    ASSERT_EQ(desk.rings.size(), 2U);
    EXPECT_EQ(desk.rings[1].city, "Istanbul");
}

}  // namespace
}  // namespace quode::test
