// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Failing saves: the calendar is then the old or the new one, never a part.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

#include <cstring>
#include <functional>
#include <thread>

#include "calendar_test_support.h"
#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"

namespace quode::test {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using Fault = FaultyCalls::Fault;
using namespace std::chrono_literals;

constexpr int kMoreCallsThanASaveMakes = 60;

/// Runs `work` in a separate process.
/// @return its exit status, as from waitpid()
int inChild(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

class SaveFaultTest : public testing::Test {
  protected:
    SaveFaultTest() {
        event = alarmOnDay(10);
        event.identifier = store.saveEvent(event).identifier;
        old = contentOf(file);
        changed = event;
        changed.start += 24h;
        changed.end += 24h;
        store.saveEvent(changed);
        changedContent = contentOf(file);
        restore(old);
    }

    void restore(const std::string& content) {
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            std::filesystem::remove_all(entry.path());
        }
        write(file, content);
    }

    /// After a fault, a new store works and cleans up.
    void expectWorkingAgain() {
        IcalEventStore fresh(folder.path(), surroundingsWith(systemFileCalls()));
        const SavedEvent saved = fresh.saveEvent(changed);
        EXPECT_TRUE(saved.status.ok) << saved.status.message;
        EXPECT_EQ(fresh.findEvent(event.identifier).event, changed);
        EXPECT_FALSE(std::filesystem::exists(folder.path() / ".Quode.ics.tmp"));
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "Quode.ics";
    IcalEventStore store{folder.path(), quickSurroundings()};
    CalendarEvent event;
    CalendarEvent changed;
    std::string old;
    std::string changedContent;
};

TEST_F(SaveFaultTest, WhicheverStepFailsTheFileIsTheOldOrTheNewOneAndTheCauseIsNamed) {
    for (const int error : {ENOSPC, EIO, EACCES, EROFS, EDQUOT}) {
        int failures = 0;
        for (int step = 1; step <= kMoreCallsThanASaveMakes; ++step) {
            restore(old);
            const auto calls = std::make_shared<FaultyCalls>(Fault::Fails, step, error);
            const SavedEvent saved = IcalEventStore(folder.path(), surroundingsWith(calls)).saveEvent(changed);
            if (calls->calls() < step) break;
            EXPECT_EQ(contentOf(file), saved.status.ok ? changedContent : old) << "step " << step;
            if (!saved.status.ok) {
                ++failures;
                EXPECT_THAT(saved.status.message, HasSubstr(std::strerror(error)));
                EXPECT_EQ(saved.identifier, "");
            }
            expectWorkingAgain();
        }
        EXPECT_GE(failures, 7) << "leftovers, creation, mode, write, sync, close, rename";
    }
}

TEST_F(SaveFaultTest, WhicheverStepIsTheLastOfAKilledProgramTheFileIsTheOldOrTheNewOne) {
    for (const Fault fault : {Fault::DiesBefore, Fault::DiesAfter}) {
        int kills = 0;
        for (int step = 1; step <= kMoreCallsThanASaveMakes; ++step) {
            restore(old);
            const int status = inChild([&] {
                const auto calls = std::make_shared<FaultyCalls>(fault, step);
                IcalEventStore(folder.path(), surroundingsWith(calls)).saveEvent(changed);
                return 0;
            });
            if (WIFEXITED(status)) break;
            EXPECT_EQ(WTERMSIG(status), SIGKILL);
            ++kills;
            EXPECT_THAT(contentOf(file), AnyOf(old, changedContent)) << "step " << step;
            expectWorkingAgain();
        }
        EXPECT_GE(kills, 8);
    }
}

TEST_F(SaveFaultTest, ADamagedFileOutlastsAKillAtEveryStep) {
    for (const Fault fault : {Fault::DiesBefore, Fault::DiesAfter}) {
        int kills = 0;
        for (int step = 1; step <= kMoreCallsThanASaveMakes; ++step) {
            restore("damaged, but somebody's");
            const int status = inChild([&] {
                const auto calls = std::make_shared<FaultyCalls>(fault, step);
                IcalEventStore(folder.path(), surroundingsWith(calls)).saveEvent(event);
                return 0;
            });
            if (WIFEXITED(status)) break;
            ++kills;
            EXPECT_TRUE(std::filesystem::exists(file)) << "step " << step;
            expectWorkingAgain();
            EXPECT_EQ(contentOf(folder.path() / "Quode.ics.damaged-1"), "damaged, but somebody's") << "step " << step;
        }
        EXPECT_GE(kills, 9);
    }
}

TEST_F(SaveFaultTest, ADamagedFileIsKeptWhichStepEverFails) {
    for (int step = 1; step <= kMoreCallsThanASaveMakes; ++step) {
        restore("damaged, but somebody's");
        const auto calls = std::make_shared<FaultyCalls>(Fault::Fails, step, EIO);
        IcalEventStore(folder.path(), surroundingsWith(calls)).saveEvent(event);
        if (calls->calls() < step) break;
        expectWorkingAgain();
        EXPECT_EQ(contentOf(folder.path() / "Quode.ics.damaged-1"), "damaged, but somebody's") << "step " << step;
    }
}

TEST_F(SaveFaultTest, AFileSystemWithoutSecondNamesKeepsADamagedFileToo) {
    class NoLinks : public FileCalls {
      public:
        int link(const std::filesystem::path&, const std::filesystem::path&) override {
            errno = EPERM;
            return -1;
        }
    };
    restore("damage");
    const SavedEvent saved =
        IcalEventStore(folder.path(), surroundingsWith(std::make_shared<NoLinks>())).saveEvent(event);
    EXPECT_TRUE(saved.status.ok) << saved.status.message;
    EXPECT_EQ(contentOf(folder.path() / "Quode.ics.damaged-1"), "damage");
}

TEST_F(SaveFaultTest, RemovingIsAsSafeAsSaving) {
    for (int step = 1; step <= kMoreCallsThanASaveMakes; ++step) {
        restore(old);
        const auto calls = std::make_shared<FaultyCalls>(Fault::Fails, step, ENOSPC);
        const StoreStatus status = IcalEventStore(folder.path(), surroundingsWith(calls)).removeEvent(event.identifier);
        if (calls->calls() < step) break;
        EXPECT_EQ(contentOf(file) == old, !status.ok) << "step " << step;
    }
}

TEST_F(SaveFaultTest, AVdirSavesAsSafely) {
    const auto vdir = folder.path() / "vdir";
    const auto eventFile = vdir / (event.identifier + ".ics");
    for (const Fault fault : {Fault::DiesBefore, Fault::DiesAfter}) {
        for (int step = 1; step <= kMoreCallsThanASaveMakes; ++step) {
            std::filesystem::remove_all(vdir);
            VdirEventStore(vdir, quickSurroundings()).saveEvent(event);
            const int status = inChild([&] {
                const auto calls = std::make_shared<FaultyCalls>(fault, step);
                VdirEventStore(vdir, surroundingsWith(calls)).saveEvent(changed);
                return 0;
            });
            if (WIFEXITED(status)) break;
            const auto now = VdirEventStore(vdir, quickSurroundings()).ownEvents().events;
            EXPECT_THAT(now, AnyOf(std::vector{event}, std::vector{changed})) << "step " << step;
        }
    }
}

TEST_F(SaveFaultTest, TheModeOfTheFileIsKept) {
    for (const mode_t mode : {0600U, 0640U, 0664U}) {
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        ASSERT_TRUE(store.saveEvent(changed).status.ok);
        struct stat facts {};
        ASSERT_EQ(::stat(file.c_str(), &facts), 0);
        EXPECT_EQ(facts.st_mode & 07777U, mode);
    }
}

TEST_F(SaveFaultTest, SavesInQuickSuccessionAreDistinguishedByTheSecond) {
    const auto modified = [this] {
        struct stat facts {};
        EXPECT_EQ(::stat(file.c_str(), &facts), 0);
        return facts.st_mtim.tv_sec;
    };
    std::time_t before = modified();
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(store.saveEvent(changed).status.ok);
        EXPECT_GT(modified(), before);
        before = modified();
    }
    EXPECT_LE(before, std::time(nullptr) + 5);

    const timespec wrongClock[] = {{0, UTIME_OMIT}, {std::time(nullptr) + 1'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), wrongClock, 0), 0);
    ASSERT_TRUE(store.saveEvent(changed).status.ok);
    EXPECT_LE(modified(), std::time(nullptr) + 1);
}

TEST_F(SaveFaultTest, TheOwnerOfTheFileIsKeptByTheAdministrator) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the administrator may give files away";
    ASSERT_EQ(::chown(file.c_str(), 65534, 65534), 0);
    ASSERT_TRUE(store.saveEvent(changed).status.ok);
    struct stat facts {};
    ASSERT_EQ(::stat(file.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_uid, 65534U);
    EXPECT_EQ(facts.st_gid, 65534U);
}

TEST_F(SaveFaultTest, ASymbolicLinkStaysALink) {
    const auto elsewhere = folder.path() / "elsewhere";
    std::filesystem::create_directory(elsewhere);
    std::filesystem::rename(file, elsewhere / "real.ics");
    std::filesystem::create_symlink(elsewhere / "real.ics", file);
    ASSERT_TRUE(store.saveEvent(changed).status.ok);
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(contentOf(elsewhere / "real.ics"), changedContent);
}

TEST_F(SaveFaultTest, AWriterThatNeverFinishesIsNotWaitedForForever) {
    const int holder = ::open((folder.path() / ".Quode.ics.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(::flock(holder, LOCK_EX), 0);
    const SavedEvent saved = store.saveEvent(changed);
    EXPECT_FALSE(saved.status.ok);
    EXPECT_THAT(saved.status.message, HasSubstr("Another program is writing"));
    EXPECT_EQ(contentOf(file), old);
    EXPECT_TRUE(store.findEvent(event.identifier).event) << "reading does not wait";
    ::close(holder);
    EXPECT_TRUE(store.saveEvent(changed).status.ok);
}

/// Runs as an ordinary user, because the administrator may write everywhere.
int asOrdinaryUser(const std::function<int()>& work) {
    return inChild([&] {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) return 100;
        return work();
    });
}

TEST_F(SaveFaultTest, AReadOnlyFolderIsReportedAndNothingChanges) {
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    const int status = asOrdinaryUser([&] {
        const SavedEvent saved = store.saveEvent(changed);
        const bool named = saved.status.message.find("Check the permissions") != std::string::npos;
        return !saved.status.ok && named && store.findEvent(event.identifier).event == event ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(contentOf(file), old);
}

TEST_F(SaveFaultTest, AFileThatMayNotBeReadIsLeftAlone) {
    ASSERT_EQ(::chmod(file.c_str(), 0000), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    const int status = asOrdinaryUser([&] {
        const SavedEvent saved = store.saveEvent(changed);
        const bool named = saved.status.message.find("Permission denied") != std::string::npos;
        return !saved.status.ok && named && !store.ownEvents().status.ok ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
    EXPECT_EQ(contentOf(file), old);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "Quode.ics.damaged-1"));
}

/// Unmounts a disk again.
struct Unmounting {
    std::filesystem::path disk;
    ~Unmounting() { ::umount2(disk.c_str(), MNT_DETACH); }
};

TEST_F(SaveFaultTest, AFullDiskIsReportedAndTheOldFileStays) {
    const auto disk = folder.path() / "disk";
    std::filesystem::create_directory(disk);
    if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0) {
        GTEST_SKIP() << "no small disk can be mounted here: " << std::strerror(errno);
    }
    const Unmounting atEnd{disk};
    IcalEventStore onDisk(disk, surroundingsWith(systemFileCalls()));
    CalendarEvent kept = alarmOnDay(1);
    kept.identifier = onDisk.saveEvent(kept).identifier;
    { std::ofstream(disk / "filler") << std::string(100'000, 'x'); }
    CalendarEvent large = kept;
    large.title = std::string(10'000, 'y');
    const SavedEvent saved = onDisk.saveEvent(large);
    EXPECT_FALSE(saved.status.ok);
    EXPECT_THAT(saved.status.message, HasSubstr("Free some space"));
    EXPECT_EQ(onDisk.findEvent(kept.identifier).event, kept);

    std::filesystem::remove(disk / "filler");
    EXPECT_TRUE(onDisk.saveEvent(large).status.ok);
}

}  // namespace
}  // namespace quode::test
