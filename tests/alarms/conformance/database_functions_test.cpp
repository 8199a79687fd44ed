// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Reading the user database, and the statements that it runs.
#include "database_functions_fixture.h"

namespace quode {
namespace {

using test::utc;
using testing::HasSubstr;

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

TEST_F(DatabaseFunctionsTest, ReadsWhichAlarmsAreOn) {
    EXPECT_EQ(functions->activeAlarms(), std::set<int>{});
    sql(std::string(tables) +
        "INSERT INTO USER_ALARMS VALUES (1, 0, 0, 0, '', -1, ''), (2, 0, 0, 0, '', 'x', ''), (6, 5, 22, 0, '', 2, '')");
    EXPECT_EQ(functions->activeAlarms(), (std::set<int>{200, 205}));
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

}  // namespace
}  // namespace quode
