// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "alarmd/AlarmKeeper.h"
#include "alarms/DatabaseFunctions.h"
#include "companion/UserSettings.h"
#include "data/sqlite_reading.h"
#include "recording_desk.h"
#include "support/faulty_disk.h"
#include "support/memory_event_store.h"
#include "support/shared_services.h"
#include "support/temporary_folder.h"
#include "support/zoned_clock.h"

namespace quode::test {

using namespace std::chrono;

/// A keeper with a clock, a calendar and a desktop of its own, in Istanbul.
class AlarmKeeperTest : public testing::Test {
  protected:
    AlarmKeeperTest() {
        startServices(folder.path(), clock, calendar);
        clock->present = utc("2026-10-16 21:00:00");  // midnight in Istanbul
        restart();
    }

    /// A process that knows nothing but what the files tell.
    void restart() {
        AlarmSurroundings with{folder.path(),
                               &cities,
                               clock.get(),
                               [this] { return uptime(); },
                               calendar.get(),
                               [](CalendarLayout) { return StoreStatus{}; },
                               &desk,
                               [this](std::string_view message) { told += std::string(message) + "\n"; },
                               milliseconds(100)};
        if (ringer) with.ringer = ringer;
        keeper = std::make_unique<AlarmKeeper>(std::move(with));
    }

    /// A device that never slept: as long as the clock goes forward it is right.
    Uptime uptime() {
        if (clock->present > formerly) running += clock->present - formerly;
        formerly = clock->present;
        return {boot, floor<milliseconds>(running)};
    }

    /// Sets the clock to another moment, in no time.
    void setClock(sys_seconds moment) {
        uptime();
        clock->present = formerly = moment;
    }

    /// Another program that keeps the database to itself for as long as the result lives.
    sqlite::Database lockDatabase() const {
        sqlite3* opened = nullptr;
        sqlite3_open((folder.path() / "user.sqlite").c_str(), &opened);
        sqlite3_exec(opened, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        return sqlite::Database(opened);
    }

    NotificationId shownAs(std::uint32_t number) const { return {desk.service, number}; }

    UserDatabase open() { return {folder.path(), cities, *clock}; }

    void switchOn(int code, int offset = 0, const std::string& sound = "bell") {
        open().setUpAlarm(code, offset, sound);
        DatabaseFunctions().reCalculateAlarm(code);
    }

    /// Switches an alarm on and lets the keeper plan it. Returned: when it rings.
    sys_seconds plannedRing(int code) {
        switchOn(code);
        keeper->wake();
        return dueOf(code);
    }

    /// Wakes the keeper when time has passed up to a moment.
    void wakeAt(Clock::TimePoint moment) {
        clock->present = moment;
        keeper->wake();
    }

    /// Sets the clock to another moment, in no time, and wakes the keeper.
    void wakeWithClockSetTo(sys_seconds moment) {
        setClock(moment);
        keeper->wake();
    }

    /// Wakes the keeper at each moment that it asks for until the clock shows `end`.
    void runUntil(sys_seconds end) {
        sys_seconds next = keeper->wake();
        while (next <= end) {
            ASSERT_GT(next, clock->present) << "it asks for a moment that is over";
            ++wakes;
            clock->present = next;
            next = keeper->wake();
        }
        clock->present = end;
    }

    /// The next ring of a prayer after the present moment.
    sys_seconds dueOf(int code, int offset = 0) {
        const sys_seconds now = floor<seconds>(clock->present);
        const std::vector<AlarmRule> rules{{code, offset}};
        return alarmOccurrences(siteOf(*open().home()->city), rules, now, now + hours(30)).at(0).due;
    }

    TemporaryFolder folder;
    std::optional<FaultyDisk> disk{FaultyDisk::Fault::none};
    CityDatabase cities{CityDatabase::fileIn(QUODE_BUNDLE)};
    std::shared_ptr<ZonedClock> clock = std::make_shared<ZonedClock>("<+03>-3", "Europe/Istanbul");
    std::shared_ptr<MemoryEventStore> calendar = std::make_shared<MemoryEventStore>();
    RecordingDesk desk;
    std::unique_ptr<AlarmKeeper> keeper;
    std::function<Ringer(const UserSettings&)> ringer;  ///< who really rings; empty: who is to
    std::string told;
    std::string boot = "boot-1";
    Clock::TimePoint formerly = utc("2026-10-16 21:00:00");
    microseconds running = hours(5);
    int wakes = 0;
};

}  // namespace quode::test
