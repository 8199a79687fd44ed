// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What befalls a user database: full disks, folders that may not be written, damage, other programs.
#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <random>

#include "companion/SiteChoices.h"
#include "companion/user_connection.h"
#include "fixture.h"
#include "support/faulty_disk.h"
#include "support/file_content.h"
#include "support/odd_files.h"

namespace quode::test {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Reason = UserDatabaseError::Reason;

void write(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
}

class UserDatabaseFaults : public CompanionTest {
  protected:
    /// A file with two cities, an alarm and a setting.
    void prepare() {
        UserDatabase database = open();
        database.addCity(cityNamed("Ankara"));
        database.setUpAlarm(203, -15, "bell");
        database.setSetting("a", "b");
    }

    std::string stateOf(const UserDatabase& database) const {
        return listOf(database) + " " + std::to_string(database.alarm(203).offset) + database.alarm(203).sound;
    }

    /// Several changes that belong together.
    static void changeTogether(UserDatabase& database, int cityId) {
        database.connection().change([&] {
            database.chooseHome(cityId);
            database.setUpAlarm(203, 30, "gong");
        });
    }

    std::pair<Reason, std::string> failureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const UserDatabaseError& error) {
            return {error.reason(), error.what()};
        }
        return {Reason::refused, "nothing was thrown"};
    }

    /// Does something as a user without special rights; the test's process may be one for whom nothing is forbidden.
    int asOrdinaryUser(const std::function<bool()>& action) {
        const pid_t child = fork();
        if (child == 0) {
            if (getuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(2);
            _exit(action() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

TEST_F(UserDatabaseFaults, AFullDiskIsReportedAndLosesNothing) {
    prepare();
    const std::string before = stateOf(open());
    const int ankara = cityNamed("Ankara");
    int failures = 0;
    for (int step = 1;; ++step) {
        bool failed = false;
        {
            disk.emplace(FaultyDisk::Fault::full, step);
            UserDatabase onFullDisk = open();
            try {
                changeTogether(onFullDisk, ankara);
            } catch (const UserDatabaseError& error) {
                failed = true;
                EXPECT_EQ(error.reason(), Reason::full);
                EXPECT_THAT(error.what(),
                            HasSubstr("the disk is full. Nothing was changed. Free some space and try again."));
            }
        }
        disk.emplace(FaultyDisk::Fault::none);
        if (!failed) break;
        ++failures;
        UserDatabase after = open();
        EXPECT_EQ(stateOf(after), before) << "step " << step;
        EXPECT_THAT(after.notices(), IsEmpty());
    }
    EXPECT_GT(failures, 3);
    EXPECT_EQ(stateOf(open()), "Istanbul Ankara* 30gong");
}

TEST_F(UserDatabaseFaults, AFreshFileOnAFullDiskIsReportedAndMadeLater) {
    int failures = 0;
    for (int step = 1;; ++step) {
        std::filesystem::remove(file());
        disk.emplace(FaultyDisk::Fault::full, step);
        const auto failure = failureOf([&] { open(); });
        disk.emplace(FaultyDisk::Fault::none);
        if (failure.second == "nothing was thrown") break;
        ++failures;
        EXPECT_EQ(failure.first, Reason::full);
        const UserDatabase later = open();
        EXPECT_EQ(later.alarms().size(), 6U);
        EXPECT_THAT(later.notices(), IsEmpty());
    }
    EXPECT_GT(failures, 3);
}

TEST_F(UserDatabaseFaults, AKillAtAnyStepLeavesTheOldStateOrTheNewOne) {
    prepare();
    const std::string before = stateOf(open());
    const int ankara = cityNamed("Ankara");
    const std::string original = contentOf(file());
    int kills = 0;
    for (int step = 1;; ++step) {
        write(file(), original);
        const pid_t child = fork();
        if (child == 0) {
            disk.emplace(FaultyDisk::Fault::kill, step);
            UserDatabase database = open();
            changeTogether(database, ankara);
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (WEXITSTATUS(status) == 0) break;
        ++kills;
        const UserDatabase after = open();
        EXPECT_THAT(stateOf(after), AnyOf(before, "Istanbul Ankara* 30gong")) << "step " << step;
        EXPECT_THAT(after.notices(), IsEmpty());
    }
    EXPECT_GT(kills, 5);
}

TEST_F(UserDatabaseFaults, AFolderThatMayNotBeWrittenIsReported) {
    prepare();
    const std::string before = contentOf(file());
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
    std::filesystem::permissions(file(), std::filesystem::perms(0444));
    const int ankara = cityNamed("Ankara");
    const auto tells = [&] {
        UserDatabase database = open();  // it can be read
        if (listOf(database) != "Istanbul* Ankara") return false;
        const auto [reason, message] = failureOf([&] { database.chooseHome(ankara); });
        return reason == Reason::unwritable && message.find("Nothing was changed.") != std::string::npos;
    };
    EXPECT_EQ(asOrdinaryUser(tells), 0);
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    EXPECT_EQ(contentOf(file()), before);
}

TEST_F(UserDatabaseFaults, WhatIsInThePlaceOfAFileIsReportedAtOnce) {
    for (const char* suffix : {"-journal", "-wal", "-shm", ""}) {
        for (const OddFile kind : oddFiles) {
            const std::filesystem::path odd = file().string() + suffix;
            if (!placeOddFile(kind, odd)) continue;
            EXPECT_EQ(failureOf([&] { open(); }),
                      std::pair(Reason::failed, odd.string() + " is not a regular file. Move it away."));
            std::filesystem::remove(odd);
        }
    }
}

TEST_F(UserDatabaseFaults, WhatIsInThePlaceOfTheFolderIsNamed) {
    const std::filesystem::path odd = folder.path() / "share";
    for (const OddFile kind : {OddFile::pipe, OddFile::socket}) {
        ASSERT_TRUE(placeOddFile(kind, odd));
        const auto [reason, message] = failureOf([&] { UserDatabase(odd / "Quode", cities, clock); });
        EXPECT_THAT(message, HasSubstr(odd.string() + " is not a folder. Move it away"));
        std::filesystem::remove(odd);
    }
}

TEST_F(UserDatabaseFaults, IsForTheUserAlone) {
    const auto modeOf = [](const std::filesystem::path& path) {
        struct stat facts {};
        EXPECT_EQ(::stat(path.c_str(), &facts), 0);
        return facts.st_mode & 0777U;
    };
    const auto data = folder.path() / "share/Quode";
    const UserDatabase database(data, cities, clock);
    EXPECT_EQ(modeOf(data), 0700U);
    EXPECT_EQ(modeOf(data / "user.sqlite"), 0600U);
}

TEST_F(UserDatabaseFaults, AJournalOfAProgramThatChangedNothingIsRemoved) {
    open();
    std::ofstream(file().string() + "-journal") << "";
    EXPECT_EQ(listOf(*UserDatabase::openToRead(folder.path(), cities, clock, std::chrono::seconds(1))), "Istanbul*");
    EXPECT_FALSE(std::filesystem::exists(file().string() + "-journal"));
}

TEST_F(UserDatabaseFaults, AFileThatCannotBeMadeIsReported) {
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
    const auto tells = [&] {
        const auto [reason, message] = failureOf([&] { open(); });
        return reason == Reason::unwritable && message.find("QUODE_DATA_DIR") != std::string::npos;
    };
    EXPECT_EQ(asOrdinaryUser(tells), 0);
    const auto [reason, message] = failureOf([&] { UserDatabase("/proc/nowhere", cities, clock); });
    EXPECT_EQ(reason, Reason::unwritable);
    EXPECT_THAT(message, HasSubstr("/proc/nowhere"));
}

TEST_F(UserDatabaseFaults, ADamagedFileIsKeptAsideAndAFreshOneMade) {
    prepare();
    write(file(), "This was a database once. Now it is something else, and rather long at that.");
    const UserDatabase database = open();
    EXPECT_EQ(listOf(database), "Istanbul*");
    EXPECT_THAT(database.notices(), ElementsAre(AllOf(HasSubstr("user.sqlite.damaged-1"), HasSubstr("Choose"))));
    EXPECT_THAT(contentOf(folder.path() / "user.sqlite.damaged-1"), HasSubstr("once"));
    EXPECT_THAT(open().notices(), IsEmpty());

    write(file(),
          "Damaged again, and long enough for a header that can be looked at by anybody who cares to. And more.");
    EXPECT_THAT(open().notices(), ElementsAre(HasSubstr("user.sqlite.damaged-2")));
    EXPECT_THAT(contentOf(folder.path() / "user.sqlite.damaged-1"), HasSubstr("once"));
}

TEST_F(UserDatabaseFaults, TheMethodsOfCitiesOutliveDamageElsewhereInTheFile) {
    const int istanbul = cityNamed("Istanbul");
    Timetable table{"Mosque", {}};
    table.rows[20000].minutes[0] = 312;
    std::streamoff alarms = 0;
    {
        UserDatabase database = open();
        const int hut = database.addPlace({"Hut", 47.5, 11.25});
        storeMethod(database.connection(), istanbul, *conventions::methodOf("mwl asr=2 adjust=2,0,0,0,0,-1"), 40.0);
        storeMethod(database.connection(), hut, *conventions::methodOf("isna"), 900.0);
        storeTimetable(database.connection(), istanbul, table);
        const sqlite::Statement page =
            database.connection().query("SELECT rootpage FROM sqlite_schema WHERE name = 'USER_ALARMS'");
        ASSERT_TRUE(database.connection().next(page));
        alarms = (sqlite3_column_int(page.get(), 0) - 1) * 4096;
    }
    std::fstream(file(), std::ios::in | std::ios::out).seekp(alarms) << std::string(4096, '\xFF');
    UserDatabase database = open();
    EXPECT_THAT(database.notices(), ElementsAre(HasSubstr("damaged-1")));
    const SiteChoice kept = readSiteChoice(database.connection().handle(), istanbul);
    EXPECT_EQ(conventions::textOf(kept.method), "mwl asr=2 adjust=2,0,0,0,0,-1");
    EXPECT_EQ(kept.height, 40.0);
    ASSERT_TRUE(kept.table);
    EXPECT_EQ(kept.table->rows, table.rows);
    EXPECT_TRUE(readSiteChoice(database.connection().handle(), -1).isDefault()) << "another place may get the number";
}

TEST_F(UserDatabaseFaults, OnlyTablesThatAreThereAreReadForAChoice) {
    sqlite3* opened = nullptr;
    sqlite3_open(":memory:", &opened);
    const sqlite::Database database(opened);
    const auto run = [&](const char* sql) { return sqlite3_exec(opened, sql, nullptr, nullptr, nullptr) == SQLITE_OK; };
    EXPECT_EQ(readSiteChoice(opened, 1), SiteChoice{}) << "no table";
    ASSERT_TRUE(
        run("CREATE TABLE user_method (CITYID INTEGER, METHOD TEXT, HEIGHT REAL);"
            "INSERT INTO user_method VALUES (1, 'mwl', 40.0)"));
    const SiteChoice choice = readSiteChoice(opened, 1);
    EXPECT_EQ(choice.method.key, "mwl") << "names in SQL have no case";
    EXPECT_FALSE(choice.isUnreadable);
    ASSERT_TRUE(run("CREATE TABLE USER_IQAMA (OTHER TEXT)"));
    EXPECT_TRUE(readSiteChoice(opened, 1).isUnreadable) << "without its column";
}

TEST_F(UserDatabaseFaults, AFileWithOtherTablesIsKeptAside) {
    sqlite3* opened = nullptr;
    sqlite3_open(file().c_str(), &opened);
    sqlite3_exec(opened, "CREATE TABLE USER_CITY (NAME TEXT)", nullptr, nullptr, nullptr);
    sqlite3_close(opened);
    EXPECT_THAT(open().notices(), ElementsAre(HasSubstr("damaged-1")));
    EXPECT_EQ(listOf(open()), "Istanbul*");
}

TEST_F(UserDatabaseFaults, NoDamageIsTooMuch) {
    prepare();
    const std::string before = stateOf(open());
    const std::string original = contentOf(file());
    std::mt19937 random(20261017);
    int keptAside = 0;
    for (int mutation = 0; mutation < 300; ++mutation) {
        std::string damaged = original;
        const int kind = mutation % 3;
        if (kind == 0) damaged.resize(random() % original.size());
        for (int i = 0; kind != 0 && i < (kind == 1 ? 1 : 200); ++i) {
            damaged[random() % (kind == 1 ? 4096 : damaged.size())] = static_cast<char>(random());
        }
        write(file(), damaged);
        try {
            UserDatabase database = open();
            EXPECT_EQ(database.alarms().size(), 6U) << mutation;
            database.refreshPrayerTimes();
            if (database.notices().empty()) continue;
            ++keptAside;
            const auto kept = folder.path() / ("user.sqlite.damaged-" + std::to_string(keptAside));
            EXPECT_EQ(contentOf(kept), damaged) << mutation;
            database.addCity(cityNamed("Berlin"));
        } catch (const UserDatabaseError& error) {
            // What is left: a header that claims a later edition, or a page that only writing meets.
            EXPECT_THAT(error.reason(), AnyOf(Reason::newer, Reason::failed, Reason::unwritable)) << error.what();
            EXPECT_EQ(contentOf(file()), damaged) << "the file is left alone";
        }
    }
    EXPECT_GT(keptAside, 150);
    write(file(), original);
    EXPECT_EQ(stateOf(open()), before);
}

TEST_F(UserDatabaseFaults, AFileOfALaterEditionIsLeftAlone) {
    prepare();
    {
        UserDatabase database = open();
        database.connection().run("PRAGMA user_version = 99");
    }
    const std::string before = contentOf(file());
    const auto [reason, message] = failureOf([&] { open(); });
    EXPECT_EQ(reason, Reason::newer);
    EXPECT_THAT(message, HasSubstr("later version"));
    EXPECT_EQ(contentOf(file()), before);
}

TEST_F(UserDatabaseFaults, ALockOfAnotherProgramIsReported) {
    prepare();
    UserDatabase database = open(std::chrono::milliseconds(50));
    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(file().c_str(), &opened), SQLITE_OK);
    const sqlite::Database other(opened);
    ASSERT_EQ(sqlite3_exec(opened, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(listOf(database), "Istanbul* Ankara") << "reading goes on";
    const auto [reason, message] = failureOf([&] { database.chooseHome(cityNamed("Ankara")); });
    EXPECT_EQ(reason, Reason::locked);
    EXPECT_THAT(message, HasSubstr("locked by another program"));

    ASSERT_EQ(sqlite3_exec(opened, "COMMIT; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(failureOf([&] { open(std::chrono::milliseconds(50)); }).first, Reason::locked);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "user.sqlite.damaged-1"));
    ASSERT_EQ(sqlite3_exec(opened, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
    database.chooseHome(cityNamed("Ankara"));
    EXPECT_EQ(listOf(database), "Istanbul Ankara*");
}

TEST_F(UserDatabaseFaults, AFileThatAnotherProgramLocksIsReadAsItWasBefore) {
    prepare();
    const auto listBehindLock = [&](const std::function<void()>& meanwhile) -> std::optional<std::string> {
        std::string list;
        const bool isKnown = UserDatabase::readBehindLock(folder.path(), cities, clock, [&](UserDatabase& database) {
            list = listOf(database);
            meanwhile();
        });
        return isKnown ? std::optional(list) : std::nullopt;
    };
    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(file().c_str(), &opened), SQLITE_OK);
    const sqlite::Database other(opened);
    const auto run = [&](const char* sql) {
        ASSERT_EQ(sqlite3_exec(opened, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    };
    const auto nothing = [] {};

    run("BEGIN EXCLUSIVE");
    EXPECT_EQ(listBehindLock(nothing), "Istanbul* Ankara");
    run("UPDATE USER_ALARMS SET MELODYNAME = 'gong'");
    EXPECT_EQ(listBehindLock(nothing), "Istanbul* Ankara") << "the change is still in the other program's memory";
    EXPECT_EQ(listBehindLock([&] { run("COMMIT"); }), std::nullopt) << "what was read may be half of the change";
    EXPECT_EQ(listBehindLock(nothing), "Istanbul* Ankara");
}

TEST_F(UserDatabaseFaults, AFileInTheMiddleOfAChangeIsNotReadBehindALock) {
    prepare();
    const auto isKnown = [&] {
        return UserDatabase::readBehindLock(folder.path(), cities, clock, [](UserDatabase&) {});
    };
    write(file().string() + "-journal", std::string(1, '\xD9'));  // with this byte the journal is in force
    EXPECT_FALSE(isKnown());
    write(file().string() + "-journal", std::string(1, '\0'));
    EXPECT_TRUE(isKnown());
    std::filesystem::remove(file());
    EXPECT_FALSE(isKnown());
}

/// Opens the file in several processes at once. Returned: what each of them found, or why it could not.
std::vector<std::string> openAtOnce(const std::function<UserDatabase()>& open, const std::filesystem::path& folder) {
    std::vector<pid_t> children;
    for (int i = 0; i < 6; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            std::string result;
            try {
                result = listOf(open());
            } catch (const std::exception& error) {
                result = error.what();
            }
            write(folder / ("result-" + std::to_string(i)), result);
            _exit(0);
        }
        children.push_back(child);
    }
    std::vector<std::string> results;
    for (std::size_t i = 0; i < children.size(); ++i) {
        waitpid(children[i], nullptr, 0);
        results.push_back(contentOf(folder / ("result-" + std::to_string(i))));
    }
    return results;
}

TEST_F(UserDatabaseFaults, ManyProgramsMayMakeTheFileAtOnce) {
    for (int round = 0; round < 10; ++round) {
        std::filesystem::remove(file());
        EXPECT_THAT(openAtOnce([this] { return open(); }, folder.path()), Each("Istanbul*"));
    }
}

TEST_F(UserDatabaseFaults, ManyProgramsMayRepairTheFileAtOnce) {
    for (int round = 1; round <= 10; ++round) {
        write(file(), "This was a database once. Now it is something else, and rather long at that.");
        EXPECT_THAT(openAtOnce([this] { return open(); }, folder.path()), Each("Istanbul*"));
        const auto kept = file().string() + ".damaged-" + std::to_string(round);
        EXPECT_TRUE(std::filesystem::exists(kept));
    }
    EXPECT_FALSE(std::filesystem::exists(file().string() + ".damaged-11"));
}

}  // namespace
}  // namespace quode::test
