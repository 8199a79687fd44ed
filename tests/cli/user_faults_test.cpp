// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Files of the user that are damaged, locked or unreachable: nothing is lost, and a message says what to do.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "program.h"
#include "support/file_content.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

void expectMessage(const Outcome& run, int code, const std::string& message) {
    EXPECT_EQ(run.code, code) << run.err;
    EXPECT_TRUE(run.err.starts_with("quode: ")) << run.err;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
}

/// A user with Berlin, Istanbul as home and all alarms on.
class UserFaults : public testing::Test {
  protected:
    UserFaults() {
        program.run({"city", "add", "Berlin"});
        program.run({"alarm", "on", "all"});
    }

    std::string stateOf(const std::string& key) const {
        const auto checks = program.run({"doctor", "--json"}).json()["checks"];
        for (const auto& check : checks) {
            if (check["key"] == key) return check["state"];
        }
        return "";
    }

    Program program;
    fs::path folder = program.dataFolder();
    fs::path database = folder / "user.sqlite";
    fs::path calendar = folder / "Quode.ics";
};

// --- a damaged database

class DamagedUserDatabase : public UserFaults {
  protected:
    DamagedUserDatabase() {
        std::fstream stream(database, std::ios::in | std::ios::out | std::ios::binary);
        stream << std::string(4000, 'x');
    }
};

TEST_F(DamagedUserDatabase, IsNamedByWhateverReadsIt) {
    const std::string before = contentOf(database);
    for (const Words& words :
         {Words{"city", "list"}, Words{"alarm", "list"}, Words{"alarm", "upcoming", "--json"}, Words{"settings"}}) {
        const Outcome run = program.run(words);
        expectMessage(run, 6, "user.sqlite is damaged");
        EXPECT_NE(run.err.find("keeps the file aside and creates a new one"), std::string::npos) << run.err;
        EXPECT_EQ(run.out, "");
    }
    EXPECT_EQ(stateOf("user_database"), "problem");
    EXPECT_EQ(program.run({"doctor"}).lineWith("Alarm service"),
              "–   Alarm service  not running; it is not known whether an alarm is on");
    EXPECT_EQ(contentOf(database), before) << "reading changes nothing";
}

TEST_F(DamagedUserDatabase, DoesNotKeepTheTimesFromBeingShown) {
    const Outcome next = program.run({"next"});
    expectMessage(next, 6, "Your home city cannot be read.");
    EXPECT_EQ(next.out, Program().run({"next"}).out) << "that of the system's zone is shown";
    // Where a city is named, its method is missing: the time is that of the default, and said to be.
    const Outcome berlin = program.run({"next", "--city", "Berlin"});
    expectMessage(berlin, 6, "the method of Berlin cannot be read");
    EXPECT_EQ(berlin.out, Program().run({"next", "--city", "Berlin"}).out);
}

TEST_F(DamagedUserDatabase, IsKeptAsideByTheNextChange) {
    const std::string damaged = contentOf(database);
    const Outcome add = program.run({"city", "add", "Ankara"});
    expectMessage(add, 0, "user.sqlite.damaged-1");
    EXPECT_NE(add.err.find("Choose your cities and alarms again"), std::string::npos) << add.err;
    EXPECT_EQ(add.lines().size(), 5U) << "two cities, and that the first was not chosen";
    EXPECT_EQ(contentOf(folder / "user.sqlite.damaged-1"), damaged);
    EXPECT_EQ(program.run({"city", "list"}).out, add.out);
}

// --- a damaged calendar

/// The first byte of a table's page in the user database.
std::streamoff pageOf(const fs::path& database, const std::string& table) {
    sqlite3* opened = nullptr;
    EXPECT_EQ(sqlite3_open(database.c_str(), &opened), SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    const std::string query = "SELECT (rootpage - 1) * 4096 FROM sqlite_schema WHERE name = '" + table + "'";
    sqlite3_prepare_v2(opened, query.c_str(), -1, &statement, nullptr);
    const std::streamoff page = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : 0;
    sqlite3_finalize(statement);
    sqlite3_close(opened);
    return page;
}

TEST_F(UserFaults, AMethodThatCannotBeReadIsReportedBesideTheTimes) {
    program.run({"method", "set", "mwl", "--city", "Berlin"});
    ASSERT_EQ(program.run({"today", "--city", "Berlin"}).code, 0);
    const std::streamoff page = pageOf(database, "USER_METHOD");
    ASSERT_GT(page, 0);
    std::fstream(database, std::ios::in | std::ios::out).seekp(page) << std::string(4096, '\xFF');
    expectMessage(program.run({"today", "--city", "Berlin"}), 6, "the method of Berlin cannot be read");
}

TEST_F(UserFaults, ADamagedCalendarIsKeptAsideAndBegunAgain) {
    std::ofstream(calendar) << "no calendar";
    EXPECT_EQ(stateOf("calendar"), "problem");
    EXPECT_EQ(contentOf(calendar), "no calendar");
    const Outcome on = program.run({"alarm", "on", "all"});
    expectMessage(on, 0, "It is kept as Quode.ics.damaged-1, and a new calendar is started.");
    EXPECT_EQ(contentOf(folder / "Quode.ics.damaged-1"), "no calendar");
    EXPECT_EQ(stateOf("calendar"), "ok");
}

TEST_F(UserFaults, ACalendarThatCannotBeWrittenLeavesTheAlarmOnAndSaysSo) {
    fs::remove(calendar);
    fs::create_directory(calendar);
    const Outcome off = program.run({"alarm", "set", "fajr", "--offset", "7"});
    expectMessage(off, 6, "The alarm has no event in the calendar.");
    EXPECT_EQ(program.run({"alarm", "list", "--json"}).json()["alarms"][0]["offset_minutes"], 7);
    EXPECT_EQ(stateOf("calendar"), "problem");
    const Outcome switchedOff = program.run({"alarm", "off", "fajr"});
    expectMessage(switchedOff, 6, "The event of the alarm may still be in the calendar.");
    EXPECT_EQ(program.run({"alarm", "list", "--json"}).json()["alarms"][0]["on"], false);
}

// --- another program that holds the lock

class LockedUserDatabase : public UserFaults {
  protected:
    void lock(const char* kind) {
        ASSERT_EQ(sqlite3_open(database.c_str(), &other_), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(other_, (std::string("BEGIN ") + kind).c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~LockedUserDatabase() override { sqlite3_close(other_); }

  private:
    sqlite3* other_ = nullptr;
};

TEST_F(LockedUserDatabase, KeepsNobodyFromTheTimesOfTheHomeCity) {
    program.run({"city", "home", "Ankara"});
    program.run({"method", "set", "mwl"});
    const Outcome before = program.run({"next", "--json"});
    lock("EXCLUSIVE");
    const Outcome next = program.run({"next", "--json"});
    EXPECT_EQ(next.code, 0) << next.err;
    EXPECT_EQ(next.out, before.out);
    expectMessage(program.run({"city", "list"}), 6,
                  "is locked by another program. Close that program, or try again in a moment.");
}

TEST_F(LockedUserDatabase, IsReportedWhileAChangeIsHalfWritten) {
    lock("EXCLUSIVE");
    std::ofstream(database.string() + "-journal") << "not zero";
    const Outcome next = program.run({"next"});
    expectMessage(next, 6, "is locked by another program");
    EXPECT_EQ(next.lines().size(), 1U);
}

TEST_F(LockedUserDatabase, KeepsAChangeFromBeingMade) {
    lock("EXCLUSIVE");
    expectMessage(program.run({"city", "add", "Ankara"}), 6, "is locked by another program");
}

TEST_F(LockedUserDatabase, CanBeReadWhileAnotherProgramPreparesAChange) {
    lock("IMMEDIATE");
    EXPECT_EQ(program.run({"city", "list"}).code, 0);
    EXPECT_EQ(program.run({"alarm", "upcoming"}).code, 0);
}

TEST_F(LockedUserDatabase, SwitchesNoAlarmAndSaysWhy) {
    lock("IMMEDIATE");
    const Outcome off = program.run({"alarm", "off", "fajr"});
    expectMessage(off, 6, "is locked by another program");
    EXPECT_EQ(off.out, "");
}

// --- no right to write or to read

class UnwritableUserFolder : public UserFaults {
  protected:
    void SetUp() override {
        program.asSomebodyElse();
        fs::permissions(program.folder(), fs::perms::all);
        if (program.run({"--version"}).code != 0) GTEST_SKIP() << "nobody else may run the program here";
        giveRights(0555, 0444);
    }

    void giveRights(unsigned ofFolder, unsigned ofFiles) {
        for (const auto& entry : fs::directory_iterator(folder)) fs::permissions(entry, fs::perms(ofFiles));
        fs::permissions(folder, fs::perms(ofFolder));
        if (getuid() != 0) return;
        for (fs::path way = folder.parent_path(); way != program.folder(); way = way.parent_path()) {
            fs::permissions(way, fs::perms(0755));
        }
    }

    void TearDown() override { fs::permissions(folder, fs::perms::all); }
};

TEST_F(UnwritableUserFolder, CanBeReadFrom) {
    const Outcome list = program.run({"city", "list"});
    EXPECT_EQ(list.code, 0) << list.err;
    EXPECT_EQ(list.lines().size(), 5U) << "two cities, and that the first was not chosen";
    EXPECT_NE(list.err.find("Give yourself write permission"), std::string::npos) << list.err;
    EXPECT_EQ(program.run({"alarm", "upcoming", "--json"}).json()["rings"].size(), 6U);
    EXPECT_EQ(stateOf("data_folder"), "problem");
    EXPECT_EQ(stateOf("user_database"), "ok");
}

TEST_F(UnwritableUserFolder, KeepsChangesFromBeingMadeAndSaysWhy) {
    const std::string before = contentOf(database);
    for (const Words& words : {Words{"city", "add", "Ankara"}, Words{"city", "remove", "Berlin"},
                               Words{"alarm", "off", "fajr"}, Words{"alarm", "set", "fajr", "--offset", "5"},
                               Words{"settings", "sound", "bell"}, Words{"settings", "calendar", "vdir"}}) {
        const Outcome run = program.run(words);
        const bool isOfAlarms = run.err.find("user.sqlite cannot be written") == std::string::npos;
        expectMessage(run, 6, isOfAlarms ? ".alarms.lock cannot be opened" : "user.sqlite cannot be written");
        EXPECT_NE(run.err.find("Give yourself write permission"), std::string::npos) << run.err;
    }
    EXPECT_EQ(contentOf(database), before);
}

TEST_F(UnwritableUserFolder, ThatCannotBeReadEitherIsReportedAsSuch) {
    giveRights(0700, 0600);
    const Outcome list = program.run({"city", "list"});
    expectMessage(list, getuid() == 0 ? 6 : 0, getuid() == 0 ? "cannot be opened" : "");
    const Outcome next = program.run({"next", "--city", "Berlin"});
    EXPECT_EQ(next.out, Program().run({"next", "--city", "Berlin"}).out);
}

TEST(UserFolder, ThatIsAFileIsReported) {
    Program program;
    const fs::path file = program.folder() / "file";
    std::ofstream(file) << "";
    program.with("QUODE_DATA_DIR", (file / "below").string());
    expectMessage(program.run({"city", "add", "Berlin"}), 6, "cannot be created");
    expectMessage(program.run({"alarm", "on", "fajr"}), 6, "set QUODE_DATA_DIR to another folder");
    const auto check = program.run({"doctor", "--json"}).json()["checks"][0];
    EXPECT_EQ(check["state"], "problem");
    EXPECT_NE(check["advice"].get<std::string>().find("is not a folder"), std::string::npos);
}

}  // namespace
}  // namespace quode::test
