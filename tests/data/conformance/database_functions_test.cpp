// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/DatabaseFunctions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <fstream>
#include <future>

#include "common/GlobalFuncs.h"
#include "data/alarm_moment.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"
#include "support/memory_event_store.h"
#include "support/temporary_folder.h"
#include "support/zoned_clock.h"

namespace quode {
namespace {

using std::chrono::minutes;
using test::utc;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* tables =
    "CREATE TABLE USER_CITY (ID INTEGER, SETASHOME INTEGER);"
    "CREATE TABLE USER_ALARMS (TIMEID INTEGER, MINUTE, PRAYTIME, MELODYTIME, MELODYNAME, ACTIVE, EVENTID);";

// A user database in a temporary folder, a calendar in memory, and a clock that the test sets.
class DatabaseFunctionsTest : public testing::Test {
  protected:
    DatabaseFunctionsTest() {
        Platform platform = test::FakePlatform().platform();
        platform.clock = clock;
        platform.files = posixFiles();
        platform.dataFolder = folder.path();
        platform.eventStore = store;
        GlobalFuncs::startUp(platform);
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

TEST_F(DatabaseFunctionsTest, WorksOnUserSqliteOfTheDataFolder) {
    EXPECT_EQ(functions->userDBPath(), folder.path().string() + "/user.sqlite");
}

// ---- column readers

class ColumnReaders : public DatabaseFunctionsTest {
  protected:
    void read(const std::string& expression) {
        sqlite3* opened = nullptr;
        sqlite3_open(":memory:", &opened);
        database.reset(opened);
        row = sqlite::prepare(opened, "SELECT " + expression);
        ASSERT_EQ(sqlite3_step(row.get()), SQLITE_ROW);
    }
    sqlite::Database database;
    sqlite::Statement row;
};

TEST_F(ColumnReaders, GiveDefaultsForAnAbsentText) {
    read("NULL");
    EXPECT_EQ(functions->asInteger(row.get(), 0), 0);
    EXPECT_FALSE(functions->asBoolean(row.get(), 0));
    EXPECT_EQ(functions->asFloat(row.get(), 0), 0.0);
    EXPECT_EQ(functions->asString(row.get(), 0), "");
    EXPECT_EQ(functions->asString(row.get(), 7), "");  // no such column
}

TEST_F(ColumnReaders, TakeTheNumberThatATextBeginsWith) {
    read("'42', ' -15 min', '+7', 'abc', '', '5.25x', '12.9', '--3', '+-3', -2.5, 'inf', 'nan', '1e3'");
    EXPECT_EQ(functions->asInteger(row.get(), 0), 42);
    EXPECT_EQ(functions->asInteger(row.get(), 1), -15);
    EXPECT_EQ(functions->asInteger(row.get(), 2), 7);
    EXPECT_EQ(functions->asInteger(row.get(), 3), 0);
    EXPECT_EQ(functions->asInteger(row.get(), 4), 0);
    EXPECT_EQ(functions->asFloat(row.get(), 5), 5.25);
    EXPECT_EQ(functions->asInteger(row.get(), 6), 12);
    EXPECT_EQ(functions->asInteger(row.get(), 7), 0);
    EXPECT_EQ(functions->asInteger(row.get(), 8), 0);
    EXPECT_EQ(functions->asFloat(row.get(), 9), -2.5);
    EXPECT_EQ(functions->asFloat(row.get(), 10), 0.0);
    EXPECT_EQ(functions->asFloat(row.get(), 11), 0.0);
    EXPECT_EQ(functions->asFloat(row.get(), 12), 1000.0);
}

TEST_F(ColumnReaders, HoldNumbersThatAreTooLargeToTheEndOfTheRange) {
    read("'99999999999', '-99999999999', '1e999'");
    EXPECT_EQ(functions->asInteger(row.get(), 0), 2147483647);
    EXPECT_EQ(functions->asInteger(row.get(), 1), -2147483647 - 1);
    EXPECT_EQ(functions->asFloat(row.get(), 2), 0.0);
}

TEST_F(ColumnReaders, TakeOnlyNumbersAboveZeroAsTrue) {
    read("1, 2, 0, -1, 'yes'");
    EXPECT_TRUE(functions->asBoolean(row.get(), 0));
    EXPECT_TRUE(functions->asBoolean(row.get(), 1));
    EXPECT_FALSE(functions->asBoolean(row.get(), 2));
    EXPECT_FALSE(functions->asBoolean(row.get(), 3));
    EXPECT_FALSE(functions->asBoolean(row.get(), 4));
}

TEST_F(ColumnReaders, GiveTextsAsUtf8) {
    read("'Çan sesi ☾'");
    EXPECT_EQ(functions->asString(row.get(), 0), "Çan sesi ☾");
}

// ---- running statements

TEST_F(DatabaseFunctionsTest, RunsAStatement) {
    sql(tables);
    EXPECT_TRUE(functions->executeSQL("INSERT INTO USER_CITY VALUES (7, 1)"));
    EXPECT_EQ(value("SELECT ID FROM USER_CITY"), "7");
    EXPECT_EQ(log(), "");
}

TEST_F(DatabaseFunctionsTest, TellsOfAStatementThatFails) {
    sql(tables);
    EXPECT_FALSE(functions->executeSQL("DELETE FROM NOWHERE"));
    EXPECT_THAT(log(), HasSubstr("] no such table: NOWHERE\n"));
}

TEST_F(DatabaseFunctionsTest, RunsNothingWithoutTheFileAndDoesNotMakeIt) {
    EXPECT_FALSE(functions->executeSQL("CREATE TABLE T (A)"));
    EXPECT_THAT(log(), HasSubstr("] Error in executeSQL : DB file not exists\n"));
    EXPECT_FALSE(functions->executeArrayOfSQL(std::vector<std::string>{"CREATE TABLE T (A)"}));
    EXPECT_THAT(log(), HasSubstr("] Error in executeArrayOfSQL : DB file not exists\n"));
    EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(DatabaseFunctionsTest, RunsNothingWhenTheFileCannotBeOpened) {
    std::filesystem::create_directory(file());
    EXPECT_FALSE(functions->executeSQL("CREATE TABLE T (A)"));
    EXPECT_THAT(log(), HasSubstr("] Error in executeSQL : DB not opened\n"));
    EXPECT_FALSE(functions->executeArrayOfSQL(std::vector<std::string>{"CREATE TABLE T (A)"}));
    EXPECT_THAT(log(), HasSubstr("] Error in executeArrayOfSQL : DB not opened\n"));
}

TEST_F(DatabaseFunctionsTest, RunsAListOfStatementsPastOneThatFails) {
    sql(tables);
    EXPECT_TRUE(functions->executeArrayOfSQL(
        std::vector<std::string>{"DELETE FROM NOWHERE", "INSERT INTO USER_CITY VALUES (7, 1)"}));
    EXPECT_EQ(value("SELECT ID FROM USER_CITY"), "7");
    EXPECT_THAT(log(), HasSubstr("no such table: NOWHERE"));
    EXPECT_TRUE(functions->executeArrayOfSQL(
        std::vector<std::string>{"INSERT INTO USER_CITY VALUES (8, 0)", "DELETE FROM NOWHERE"}));
}

TEST_F(DatabaseFunctionsTest, RunsAListOnOneConnection) {
    sql(tables);
    EXPECT_TRUE(functions->executeArrayOfSQL(std::vector<std::string>{
        "CREATE TEMP TABLE T (A)", "INSERT INTO T VALUES (9)", "INSERT INTO USER_CITY SELECT A, 0 FROM T"}));
    EXPECT_EQ(value("SELECT ID FROM USER_CITY"), "9");
}

TEST_F(DatabaseFunctionsTest, ReportsFailureForAListOfFailuresAndForAnEmptyList) {
    sql(tables);
    EXPECT_FALSE(functions->executeArrayOfSQL(std::vector<std::string>{"DELETE FROM NOWHERE", "NONSENSE"}));
    EXPECT_FALSE(functions->executeArrayOfSQL({}));
}

// ---- reading an alarm

TEST_F(DatabaseFunctionsTest, ReadsTheAlarmOfAPrayer) {
    sql(std::string(tables) +
        "INSERT INTO USER_ALARMS VALUES (3, -20, 12.5, 4, 'Çan', 1, ''), (6, 5, 22, 0, '', 2, '')");
    EXPECT_EQ(functions->getAlarmInfo(202), (AlarmInfo{-20, 4, "Çan", true}));
    EXPECT_EQ(functions->getAlarmInfo(205), (AlarmInfo{5, 0, "", true}));
}

TEST_F(DatabaseFunctionsTest, TakesEveryActiveValueButZeroAsOn) {
    sql(std::string(tables) + "INSERT INTO USER_ALARMS VALUES (1, 0, 0, 0, '', -1, ''), (2, 0, 0, 0, '', 'x', '')");
    EXPECT_TRUE(functions->getAlarmInfo(200).active);
    EXPECT_FALSE(functions->getAlarmInfo(201).active);
}

TEST_F(DatabaseFunctionsTest, ReadsAnEmptyAlarmWithoutARowAndWithoutADatabase) {
    EXPECT_EQ(functions->getAlarmInfo(200), AlarmInfo{});
    sql(tables);
    EXPECT_EQ(functions->getAlarmInfo(200), AlarmInfo{});
    EXPECT_EQ(log(), "");
}

TEST_F(DatabaseFunctionsTest, ReadsAMinuteThatIsNoNumberAsZero) {
    sql(std::string(tables) + "INSERT INTO USER_ALARMS VALUES (1, 'soon', 0, 0, 'chime', 1, '')");
    EXPECT_EQ(functions->getAlarmInfo(200), (AlarmInfo{0, 0, "chime", true}));
}

TEST_F(DatabaseFunctionsTest, ReadsAnEmptyAlarmFromADamagedFileAndLogsIt) {
    std::ofstream(file()) << "This is no database, whatever its name says. It goes on for a while to be believed.";
    EXPECT_EQ(functions->getAlarmInfo(200), AlarmInfo{});
    EXPECT_THAT(log(), HasSubstr("Error in DatabaseFunctions -> getAlarmInfo: "));
}

// ---- switching an alarm on

TEST_F(DatabaseFunctionsTest, WritesTheEventOfAnAlarm) {
    clock->present = utc("2026-10-17 03:00:42");
    createAlarm(1, 0, 5.25);
    functions->reCalculateAlarm(200);

    const CalendarEvent event = onlyEvent();
    EXPECT_EQ(event.title, "Prayer Alarm");
    EXPECT_EQ(event.location, "Quode");
    EXPECT_FALSE(event.allDay);
    EXPECT_EQ(event.alarmOffset, std::chrono::seconds(0));
    EXPECT_EQ(event.start, utc("2026-10-17 05:15"));
    EXPECT_EQ(event.end, utc("2026-10-17 05:16"));
    EXPECT_EQ(active(), "1");
    EXPECT_EQ(eventId(), "event-1");
}

TEST_F(DatabaseFunctionsTest, PlacesTheEventOnTheNextDayOnceItsMomentHasPassed) {
    createAlarm(1, 0, 5.25);
    clock->present = utc("2026-10-17 05:16:00");
    functions->reCalculateAlarm(200);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-18 05:15"));
    EXPECT_EQ(onlyEvent().end, utc("2026-10-18 05:16"));
}

TEST_F(DatabaseFunctionsTest, PlacesTheEventInTheMinuteThatIsJustGoingOn) {
    createAlarm(1, 0, 5.25);
    clock->present = utc("2026-10-17 05:15:59");
    functions->reCalculateAlarm(200);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-17 05:15"));
}

TEST_F(DatabaseFunctionsTest, CarriesOverTheEndsOfMonthAndYear) {
    createAlarm(6, 0, 20.5);
    clock->present = utc("2026-12-31 21:00");
    functions->reCalculateAlarm(205);
    EXPECT_EQ(onlyEvent().start, utc("2027-01-01 20:30"));
    clock->present = utc("2028-02-28 21:00");
    functions->reCalculateAlarm(205);
    EXPECT_EQ(onlyEvent().start, utc("2028-02-29 20:30"));
}

TEST_F(DatabaseFunctionsTest, AddsTheOffsetToTheTruncatedMinute) {
    clock->present = utc("2026-10-17 00:10");
    createAlarm(1, -15, 5.25);
    functions->reCalculateAlarm(200);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-17 05:00"));

    sql("UPDATE USER_ALARMS SET MINUTE = 0, PRAYTIME = 5.1");
    functions->reCalculateAlarm(200);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-17 05:05"));

    sql("UPDATE USER_ALARMS SET MINUTE = 90, PRAYTIME = 5.25");
    functions->reCalculateAlarm(200);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-17 06:45"));

    sql("UPDATE USER_ALARMS SET MINUTE = -320, PRAYTIME = 5.25");  // 23:55 of the day before
    functions->reCalculateAlarm(200);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-17 23:55"));
}

TEST_F(DatabaseFunctionsTest, LetsTheEndKeepTheDayOfTheStart) {
    clock->present = utc("2026-10-17 12:00");
    createAlarm(6, 0, 23.0 + 59.5 / 60.0);
    functions->reCalculateAlarm(205);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-17 23:59"));
    EXPECT_EQ(onlyEvent().end, utc("2026-10-17 00:00"));
}

TEST_F(DatabaseFunctionsTest, PlacesAnEventAtMidnight) {
    clock->present = utc("2026-10-17 12:00");
    createAlarm(6, 0, 0.0);
    functions->reCalculateAlarm(205);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-18 00:00"));
    EXPECT_EQ(onlyEvent().end, utc("2026-10-18 00:01"));

    clock->present = utc("2026-10-18 00:00:30");
    functions->reCalculateAlarm(205);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-18 00:00"));
}

TEST_F(DatabaseFunctionsTest, UsesTheStoredEventAgain) {
    clock->present = utc("2026-10-17 03:00");
    createAlarm(1, 0, 5.25);
    functions->reCalculateAlarm(200);
    sql("UPDATE USER_ALARMS SET PRAYTIME = 6.5");
    functions->reCalculateAlarm(200);
    EXPECT_EQ(onlyEvent().start, utc("2026-10-17 06:30"));
    EXPECT_EQ(eventId(), "event-1");
}

TEST_F(DatabaseFunctionsTest, MakesANewEventWhenTheStoredOneIsGone) {
    clock->present = utc("2026-10-17 03:00");
    createAlarm(1, 0, 5.25, "long gone");
    functions->reCalculateAlarm(200);
    EXPECT_EQ(onlyEvent().identifier, "event-1");
    EXPECT_EQ(eventId(), "event-1");
}

TEST_F(DatabaseFunctionsTest, SwitchesTheAlarmOnAlthoughTheCalendarFails) {
    createAlarm(1, 0, 5.25, "old");
    store->failing = true;
    functions->reCalculateAlarm(200);
    EXPECT_EQ(active(), "1");
    EXPECT_EQ(log(), "");
}

TEST_F(DatabaseFunctionsTest, KeepsToTheEventOfACalendarThatCannotBeReadForAWhile) {
    createAlarm(1, 0, 5.25);
    functions->reCalculateAlarm(200);
    const std::string identifier = eventId();
    store->failing = true;
    functions->reCalculateAlarm(200);
    EXPECT_EQ(eventId(), identifier);
    store->failing = false;
    functions->reCalculateAlarm(200);
    EXPECT_EQ(eventId(), identifier);
    EXPECT_EQ(store->events.size(), 1U) << "none is left behind";
}

TEST_F(DatabaseFunctionsTest, MakesOneEventWhenTwoProgramsSwitchTheAlarmOnAtOnce) {
    createAlarm(1, 0, 5.25);
    std::future<void> other;
    store->beforeSave = [&other] {
        other = std::async(std::launch::async, [] { DatabaseFunctions().reCalculateAlarm(200); });
        other.wait_for(std::chrono::milliseconds(200));  // far longer than needed without a lock
    };
    functions->reCalculateAlarm(200);
    other.get();
    EXPECT_EQ(store->saves, 2);
    ASSERT_EQ(store->events.size(), 1U);
    EXPECT_EQ(store->events.begin()->first, eventId());
}

TEST_F(DatabaseFunctionsTest, RefusesAnIdentifierWithAQuote) {
    clock->present = utc("2026-10-17 03:00");
    createAlarm(1, 0, 5.25);
    store->nextIdentifier = "it's";
    functions->reCalculateAlarm(200);
    EXPECT_EQ(active(), "1");
    EXPECT_EQ(eventId(), "");
    EXPECT_THAT(log(), HasSubstr("it's"));
}

TEST_F(DatabaseFunctionsTest, TouchesNothingWithoutADatabaseOrARow) {
    functions->reCalculateAlarm(200);
    functions->deleteAlarm(200);
    EXPECT_EQ(log(), "");
    sql(tables);
    functions->reCalculateAlarm(200);
    EXPECT_THAT(store->events, IsEmpty());
    EXPECT_THAT(log(), HasSubstr("Error in DatabaseFunctions -> reCalculateAlarm: "));
}

TEST_F(DatabaseFunctionsTest, TouchesNeitherCalendarNorDatabaseWhenThatCannotBeOpened) {
    const std::string noDatabase =
        "This is no database, whatever its name says. It goes on for a while to be believed.";
    std::ofstream(file()) << noDatabase;
    store->events["kept"] = CalendarEvent{.identifier = "kept", .title = "", .location = ""};
    functions->reCalculateAlarm(200);
    functions->deleteAlarm(200);
    EXPECT_EQ(store->events.size(), 1U);
    std::ifstream stream(file());
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), noDatabase);

    std::filesystem::remove(file());
    std::filesystem::create_directory(file());
    functions->reCalculateAlarm(200);
    functions->deleteAlarm(200);
    EXPECT_EQ(store->events.size(), 1U);
}

TEST_F(DatabaseFunctionsTest, SurvivesNumbersThatLeadToNoDate) {
    createAlarm(1, 0, 5.25);
    for (const char* prayTime : {"1e300", "-1e300", "'9999999999999'", "'x'"}) {
        for (const char* minute : {"2147483647", "'-9999999999999'", "0"}) {
            sql(std::string("UPDATE USER_ALARMS SET PRAYTIME = ") + prayTime + ", MINUTE = " + minute);
            functions->reCalculateAlarm(200);
        }
    }
    EXPECT_EQ(active(), "1");
    for (const auto& [identifier, event] : store->events) {
        EXPECT_LT(event.start, utc("9999-12-31 23:59"));
    }
}

// ---- switching an alarm off

TEST_F(DatabaseFunctionsTest, RemovesTheEventOfAnAlarm) {
    clock->present = utc("2026-10-17 03:00");
    createAlarm(1, 0, 5.25);
    store->events["foreign"] = CalendarEvent{.identifier = "foreign", .title = "", .location = ""};
    functions->reCalculateAlarm(200);
    functions->deleteAlarm(200);
    EXPECT_EQ(store->events.size(), 1U);
    EXPECT_TRUE(store->events.contains("foreign"));
    EXPECT_EQ(active(), "0");
    EXPECT_EQ(eventId(), "");
}

TEST_F(DatabaseFunctionsTest, SwitchesTheAlarmOffAlthoughTheEventIsGoneOrTheCalendarFails) {
    createAlarm(1, 0, 5.25, "long gone");
    sql("UPDATE USER_ALARMS SET ACTIVE = 1");
    functions->deleteAlarm(200);
    EXPECT_EQ(active(), "0");
    sql("UPDATE USER_ALARMS SET ACTIVE = 1, EVENTID = 'x'");
    store->failing = true;
    functions->deleteAlarm(200);
    EXPECT_EQ(active(), "0");
    EXPECT_EQ(eventId(), "");
}

TEST_F(DatabaseFunctionsTest, TouchesOnlyTheRowOfThePrayer) {
    sql(std::string(tables) +
        "INSERT INTO USER_ALARMS VALUES (1, 0, 5, 0, 'a', 0, ''), (2, 0, 6, 0, 'b', 0, ''), (6, 0, 21, 0, 'c', 1, "
        "'e')");
    functions->reCalculateAlarm(201);
    EXPECT_EQ(value("SELECT group_concat(ACTIVE) FROM USER_ALARMS"), "0,1,1");
    functions->deleteAlarm(205);
    EXPECT_EQ(value("SELECT group_concat(ACTIVE) FROM USER_ALARMS"), "0,1,0");
}

// ---- the statements

// SQL that every new connection runs.
class Statements {
  public:
    Statements() {
        texts().clear();
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(&Statements::listen));
    }
    ~Statements() { sqlite3_reset_auto_extension(); }
    Statements(const Statements&) = delete;
    Statements& operator=(const Statements&) = delete;

    static std::vector<std::string>& texts() {
        static std::vector<std::string> all;
        return all;
    }

  private:
    static int listen(sqlite3* database, char**, const void*) {
        const auto note = [](unsigned, void*, void* statement, void*) {
            texts().emplace_back(sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
            return 0;
        };
        return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, note, nullptr);
    }
};

TEST_F(DatabaseFunctionsTest, RunsItsStatementsWordForWord) {
    clock->present = utc("2026-10-17 03:00");
    createAlarm(4, 0, 15.5);
    const Statements statements;
    functions->getAlarmInfo(203);
    functions->reCalculateAlarm(203);
    functions->deleteAlarm(203);
    EXPECT_THAT(
        Statements::texts(),
        testing::ElementsAre(" SELECT MINUTE, MELODYTIME, MELODYNAME, ACTIVE  FROM USER_ALARMS WHERE TIMEID = 4 ",
                             " SELECT MINUTE, PRAYTIME, EVENTID FROM USER_ALARMS WHERE TIMEID = 4 ",
                             " UPDATE USER_ALARMS SET ACTIVE = 1  WHERE TIMEID = 4 ",
                             " UPDATE USER_ALARMS SET EVENTID = 'event-1'  WHERE TIMEID = 4 ",
                             " SELECT MINUTE, PRAYTIME, EVENTID FROM USER_ALARMS WHERE TIMEID = 4 ",
                             " UPDATE USER_ALARMS SET EVENTID = ''  WHERE TIMEID = 4 ",
                             " UPDATE USER_ALARMS SET ACTIVE = 0  WHERE TIMEID = 4 "));
}

// ---- the device's clock

class InBerlin : public DatabaseFunctionsTest {
  protected:
    InBerlin() { clock->setZone("CET-1CEST,M3.5.0,M10.5.0/3", "Europe/Berlin"); }
    std::chrono::sys_seconds startAt(const std::string& now, double prayTime) {
        clock->present = utc(now);
        sql("UPDATE USER_ALARMS SET PRAYTIME = " + std::to_string(prayTime));
        functions->reCalculateAlarm(200);
        return onlyEvent().start;
    }
};

TEST_F(InBerlin, TakesTheTimeAsTheWallClockShowsItOnTheDaysWhenTheClocksChange) {
    createAlarm(1, 0, 5.25);
    EXPECT_EQ(startAt("2026-03-28 12:00", 5.25), utc("2026-03-29 03:15"));  // the first morning of summer time
    EXPECT_EQ(startAt("2026-03-29 00:30", 5.25), utc("2026-03-29 03:15"));
    EXPECT_EQ(startAt("2026-10-24 12:00", 5.25), utc("2026-10-25 04:15"));  // the first morning of winter time
    EXPECT_EQ(startAt("2026-10-25 00:30", 5.25), utc("2026-10-25 04:15"));
}

TEST_F(InBerlin, TakesASkippedTimeAnHourLaterAndADoubledTimeTheFirstTime) {
    createAlarm(1, 0, 5.25);
    EXPECT_EQ(startAt("2026-03-28 12:00", 2.5), utc("2026-03-29 01:30"));  // 02:30 is skipped: 03:30
    EXPECT_EQ(startAt("2026-10-24 12:00", 2.5), utc("2026-10-25 00:30"));
}

TEST_F(InBerlin, FollowsAChangeOfTheZone) {
    createAlarm(1, 0, 5.25);
    EXPECT_EQ(startAt("2026-10-17 00:00", 5.25), utc("2026-10-17 03:15"));
    clock->setZone("EST5EDT,M3.2.0,M11.1.0", "America/New_York");
    EXPECT_EQ(startAt("2026-10-17 00:00", 5.25), utc("2026-10-17 09:15"));
}

}  // namespace
}  // namespace quode
