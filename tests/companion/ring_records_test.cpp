// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/RingRecords.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "companion/ring_lines.h"
#include "support/odd_files.h"
#include "support/temporary_folder.h"
#include "support/zoned_clock.h"

namespace quode::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RingRecordsTest : public testing::Test {
  protected:
    static RingRecord record(int code, const std::string& due, RingState state) {
        const AlarmOccurrence alarm{code, utc(due), utc(due) + std::chrono::minutes(15), 5.1,
                                    VAKDateMake(17, 10, 2026, 0, 0, 0)};
        return {alarm, state, utc(due), {":1.7@0f", 4000000000U}, "Łódź", {"boot", std::chrono::milliseconds(12345)}};
    }

    RingRecords open() const { return RingRecords(folder.path()); }
    std::filesystem::path file() const { return folder.path() / "alarmd.rings"; }

    TemporaryFolder folder;
};

TEST_F(RingRecordsTest, KeepARing) {
    const RingRecord ring = record(203, "2026-10-17 13:05", RingState::shown);
    open().keep(ring);
    EXPECT_EQ(open().find(203, ring.alarm.due), ring);
    EXPECT_FALSE(open().find(202, ring.alarm.due));
    EXPECT_FALSE(open().find(203, ring.alarm.due + std::chrono::minutes(1)));
}

TEST_F(RingRecordsTest, KeepTheClockByWhichARingComesAgain) {
    RingRecord ring = record(203, "2026-10-17 13:05", RingState::snoozed);
    ring.clockZero = std::chrono::seconds(1'800'000'000);
    ring.isRepeated = true;
    open().keep(ring);
    EXPECT_EQ(open().find(203, ring.alarm.due), ring);
    ring.isRepeated = false;
    open().keep(ring);
    EXPECT_EQ(open().find(203, ring.alarm.due), ring);
}

TEST_F(RingRecordsTest, ReplaceWhatWasKept) {
    open().keep(record(203, "2026-10-17 13:05", RingState::begun));
    open().keep(record(203, "2026-10-17 13:05", RingState::finished));
    EXPECT_EQ(open().find(203, utc("2026-10-17 13:05"))->state, RingState::finished);
    EXPECT_THAT(open().unfinished(), IsEmpty());
}

TEST_F(RingRecordsTest, ListWhatIsUnfinishedInTheOrderOfTheNotes) {
    const RingRecord begun = record(200, "2026-10-17 03:05", RingState::begun);
    const RingRecord shown = record(202, "2026-10-17 09:05", RingState::shown);
    const RingRecord snoozed = record(203, "2026-10-17 13:05", RingState::snoozed);
    for (const RingRecord& each : {snoozed, begun, shown}) open().keep(each);
    open().keep(record(204, "2026-10-17 15:05", RingState::dropped));
    EXPECT_THAT(open().unfinished(), ElementsAre(snoozed, begun, shown));
}

TEST_F(RingRecordsTest, ForgetARing) {
    open().keep(record(203, "2026-10-17 13:05", RingState::dropped));
    open().forget(203, utc("2026-10-17 13:05"));
    EXPECT_THAT(open().all(), IsEmpty());
}

TEST_F(RingRecordsTest, TellHowFarAllIsDecided) {
    EXPECT_FALSE(open().decided());
    const DecidedNote note{utc("2026-10-17 09:00"),
                           utc("2026-10-17 09:01"),
                           {"boot", std::chrono::milliseconds(7)},
                           745044,
                           {{200, -15}, {203, 0, 0x21, -20, utc("2026-10-18 09:00")}, {205, 0, everyDay, 30}},
                           {}};
    open().setDecided(note);
    EXPECT_EQ(open().decided(), note);
}

// 96 lines: the newest rings stay, whatever the clock showed when they were noted.
TEST_F(RingRecordsTest, KeepTheNewestWhenAllLinesAreTaken) {
    RingRecords records = open();
    const RingRecord snoozed = record(200, "2026-01-01 03:05", RingState::snoozed);
    records.keep(snoozed);
    for (int day = 0; day < 120; ++day) {
        const bool isAnswered = day % 2 == 0;
        RingRecord each = record(202, "2031-01-01 09:05", isAnswered ? RingState::finished : RingState::shown);
        each.alarm.due -= std::chrono::days(day);
        records.keep(each);
    }
    const std::vector<RingRecord> kept = open().all();
    EXPECT_EQ(kept.size(), 95U);
    EXPECT_EQ(kept.front(), snoozed) << "it is not over";
    EXPECT_EQ(kept[1].alarm.due, utc("2031-01-01 09:05") - std::chrono::days(26)) << "the last 94 without a gap";
    EXPECT_EQ(kept.back().alarm.due, utc("2031-01-01 09:05") - std::chrono::days(119));
    EXPECT_EQ(std::filesystem::file_size(file()), 96 * ringLineLength);
}

TEST_F(RingRecordsTest, SkipALineThatIsDamaged) {
    const RingRecord first = record(200, "2026-10-17 03:05", RingState::shown);
    const RingRecord second = record(202, "2026-10-17 09:05", RingState::shown);
    open().keep(first);
    open().keep(second);
    std::fstream(file(), std::ios::in | std::ios::out).seekp(ringLineLength + 40).put('9');
    EXPECT_THAT(open().all(), ElementsAre(second));
}

TEST_F(RingRecordsTest, KeepInMemoryWhatCannotBeWrittenAndWriteItLater) {
    RingRecords records = open();
    const std::filesystem::path away = folder.path().string() + ".away";
    std::filesystem::rename(folder.path(), away);
    const RingRecord ring = record(203, "2026-10-17 13:05", RingState::shown);
    records.keep(ring);
    EXPECT_NE(records.problem(), "");
    EXPECT_EQ(records.find(203, ring.alarm.due), ring);
    std::filesystem::rename(away, folder.path());
    records.save();
    EXPECT_EQ(records.problem(), "");
    EXPECT_EQ(open().find(203, ring.alarm.due), ring);
}

TEST_F(RingRecordsTest, WriteEverythingAgainWhenTheFileWasTakenAway) {
    RingRecords records = open();
    const RingRecord first = record(200, "2026-10-17 03:05", RingState::shown);
    const RingRecord second = record(202, "2026-10-17 09:05", RingState::shown);
    records.keep(first);
    std::filesystem::remove(file());
    records.keep(second);
    EXPECT_THAT(open().all(), ElementsAre(first, second));
}

// A limit of the length of files stands for a disk without room: nothing longer can be written.
TEST_F(RingRecordsTest, NeedNoRoomOnceTheFileIsThere) {
    ASSERT_TRUE(RingRecords::reserve(folder.path()));
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{96 * ringLineLength, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &full);
    RingRecords records = open();
    for (int day = 0; day < 120; ++day) {
        RingRecord each = record(202, "2026-10-17 09:05", RingState::finished);
        each.alarm.due += std::chrono::days(day);
        records.keep(each);
        EXPECT_EQ(records.problem(), "");
    }
    const rlimit free{RLIM_INFINITY, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &free);
}

TEST_F(RingRecordsTest, SayWhatIsInThePlaceOfTheFile) {
    const RingRecord ring = record(203, "2026-10-17 13:05", RingState::shown);
    for (const OddFile kind : oddFiles) {
        if (!placeOddFile(kind, file())) continue;
        RingRecords records = open();
        records.keep(ring);
        EXPECT_EQ(records.problem(), "The rings cannot be noted: " + file().string() +
                                         " is not a regular file. They are kept in memory. Move it away.");
        std::filesystem::remove(file());
        records.save();
        EXPECT_EQ(records.problem(), "") << "the advice helps";
        EXPECT_EQ(open().find(203, ring.alarm.due), ring);
        std::filesystem::remove(file());
    }
    std::filesystem::create_symlink("nowhere", file());
    RingRecords records = open();
    records.keep(ring);
    EXPECT_THAT(records.problem(), testing::HasSubstr("is not a regular file"));
}

TEST_F(RingRecordsTest, SayWhyTheFileCannotBeWritten) {
    RingRecords records{folder.path() / "nowhere"};
    records.keep(record(203, "2026-10-17 13:05", RingState::shown));
    EXPECT_THAT(records.problem(), testing::HasSubstr("nowhere: No such file or directory."));
}

TEST_F(RingRecordsTest, HoldALongNameWithoutBreakingACharacter) {
    RingRecord ring = record(203, "2026-10-17 13:05", RingState::shown);
    ring.city = "\t";
    for (int i = 0; i < 100; ++i) ring.city += "ش";
    open().keep(ring);
    const std::string kept = open().find(203, ring.alarm.due)->city;
    EXPECT_EQ(kept.size(), 119U);
    EXPECT_EQ(kept.find('\t'), std::string::npos);
}

}  // namespace
}  // namespace quode::test
