// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>

#include "alarms/DatabaseFunctions.h"
#include "support/memory_event_store.h"
#include "support/shared_services.h"
#include "support/temporary_folder.h"
#include "support/zoned_clock.h"

namespace quode {

inline constexpr const char* tables =
    "CREATE TABLE USER_CITY (ID INTEGER, SETASHOME INTEGER);"
    "CREATE TABLE USER_ALARMS (TIMEID INTEGER, MINUTE, PRAYTIME, MELODYTIME, MELODYNAME, ACTIVE, EVENTID);";

// A user database in a temporary folder, a calendar in memory, and a clock that the test sets.
class DatabaseFunctionsTest : public testing::Test {
  protected:
    DatabaseFunctionsTest() {
        test::startServices(folder.path(), clock, store);
        functions = std::make_unique<DatabaseFunctions>();
    }

    void sql(const std::string& statements) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(file().c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

    std::string value(const std::string& query) {
        sqlite3* database = nullptr;
        sqlite3_open(file().c_str(), &database);
        std::string text = "no row";
        sqlite3_exec(
            database, query.c_str(),
            [](void* out, int, char** values, char**) {
                *static_cast<std::string*>(out) = values[0] ? values[0] : "NULL";
                return 0;
            },
            &text, nullptr);
        sqlite3_close(database);
        return text;
    }

    void createAlarm(int timeId, int minute, double prayTime, const std::string& event = "") {
        sql(tables + ("INSERT INTO USER_ALARMS VALUES (" + std::to_string(timeId) + "," + std::to_string(minute) + "," +
                      std::to_string(prayTime) + ",0,'chime',0,'" + event + "')"));
    }

    std::string active() { return value("SELECT ACTIVE FROM USER_ALARMS"); }
    std::string eventId() { return value("SELECT EVENTID FROM USER_ALARMS"); }
    CalendarEvent onlyEvent() {
        EXPECT_EQ(store->events.size(), 1U);
        return store->events.empty() ? CalendarEvent{} : store->events.begin()->second;
    }
    std::string log() {
        std::ifstream stream(folder.path() / "QuodeLog.txt");
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::string file() const { return folder.path() / "user.sqlite"; }

    test::TemporaryFolder folder;
    std::shared_ptr<test::ZonedClock> clock = std::make_shared<test::ZonedClock>();
    std::shared_ptr<test::MemoryEventStore> store = std::make_shared<test::MemoryEventStore>();
    std::unique_ptr<DatabaseFunctions> functions;
};

}  // namespace quode
