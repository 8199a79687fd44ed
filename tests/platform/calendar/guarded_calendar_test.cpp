// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A calendar that is not a file, that is too large or endless, and one that another program changes at the same time.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "calendar_test_support.h"
#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"
#include "support/odd_files.h"

namespace quode::test {
namespace {

using testing::HasSubstr;

unsigned modeOf(const std::filesystem::path& path) {
    struct stat facts {};
    EXPECT_EQ(::stat(path.c_str(), &facts), 0) << path;
    return facts.st_mode & 0777U;
}

class CalendarInWhosePlaceIs : public testing::TestWithParam<OddFile> {};

TEST_P(CalendarInWhosePlaceIs, IsNotWaitedForAndCalledWhatItIs) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "Quode.ics";
    if (!placeOddFile(GetParam(), file)) GTEST_SKIP() << "this user may not make it";
    IcalEventStore store(folder.path(), quickSurroundings());
    EXPECT_EQ(store.findEvent("a").status.message, file.string() + " is not a regular file. Move it away.");
    EXPECT_EQ(store.saveEvent(alarmOnDay(1)).status.message, file.string() + " is not a regular file. Move it away.");
    std::filesystem::remove(file);
    EXPECT_TRUE(store.saveEvent(alarmOnDay(1)).status.ok) << "the advice helps";
}

TEST_P(CalendarInWhosePlaceIs, HasALockThatIsNotWaitedForEither) {
    const TemporaryFolder folder;
    const std::filesystem::path lock = folder.path() / ".Quode.ics.lock";
    if (!placeOddFile(GetParam(), lock)) GTEST_SKIP() << "this user may not make it";
    const SavedEvent saved = IcalEventStore(folder.path(), quickSurroundings()).saveEvent(alarmOnDay(1));
    EXPECT_EQ(saved.status.message, lock.string() + " is not a regular file. Move it away.");
}

TEST_P(CalendarInWhosePlaceIs, IsAFolderOfFiles) {
    const TemporaryFolder folder;
    const std::filesystem::path calendar = folder.path() / "calendar";
    if (GetParam() == OddFile::folder || !placeOddFile(GetParam(), calendar)) GTEST_SKIP() << "a folder is right here";
    VdirEventStore store(calendar, quickSurroundings());
    const std::string advice = calendar.string() + " is not a folder. Move it away.";
    EXPECT_THAT(store.ownEvents().status.message, HasSubstr(advice));
    EXPECT_THAT(store.findEvent("a").status.message, HasSubstr(advice));
    EXPECT_THAT(store.saveEvent(alarmOnDay(1)).status.message, HasSubstr(advice));
}

INSTANTIATE_TEST_SUITE_P(OddFiles, CalendarInWhosePlaceIs, testing::ValuesIn(oddFiles));

TEST(GuardedCalendar, NamesAFolderInThePlaceOfItsTemporaryFile) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() / ".Quode.ics.tmp/x");
    const SavedEvent saved = IcalEventStore(folder.path(), quickSurroundings()).saveEvent(alarmOnDay(1));
    EXPECT_FALSE(saved.status.ok);
    EXPECT_THAT(saved.status.message, HasSubstr(".Quode.ics.tmp"));
}

TEST(GuardedCalendar, IsRefusedWhenItIsLargerThanAnyCalendar) {
    const TemporaryFolder folder;
    write(folder.path() / "Quode.ics", "");
    std::filesystem::resize_file(folder.path() / "Quode.ics", 100'000'000);
    const FoundEvent found = IcalEventStore(folder.path(), quickSurroundings()).findEvent("a");
    EXPECT_FALSE(found.status.ok);
    EXPECT_THAT(found.status.message, HasSubstr("It is larger than any calendar; move it away."));
}

TEST(GuardedCalendar, DoesNotFollowAZoneWhoseClockChangesEverySecond) {
    for (const char* rule : {"FREQ=SECONDLY", "FREQ=YEARLY;BYSECOND=0,1,2,3", "FREQ=DAILY", "FREQ=MINUTELY;COUNT=9"}) {
        const TemporaryFolder folder;
        write(
            folder.path() / "Quode.ics",
            std::string("BEGIN:VCALENDAR\r\nBEGIN:VTIMEZONE\r\nTZID:X\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\n"
                        "RRULE:") +
                rule +
                "\r\nTZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\nBEGIN:VEVENT\r\nUID:"
                "a\r\n"
                "DTSTART;TZID=X:20261121T060000\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
        const FoundEvent found = IcalEventStore(folder.path(), quickSurroundings()).findEvent("a");
        EXPECT_FALSE(found.status.ok) << rule;
        EXPECT_THAT(found.status.message, HasSubstr("the clock of its time zone changes too often"));
    }
}

/// A program that ignores the lock and saves the calendar while Quode writes it.
class OtherProgram : public UnsynchronisedCalls {
  public:
    OtherProgram(std::filesystem::path file, int times) : file_(std::move(file)), times_(times) {}

    int createFile(const std::filesystem::path& path, mode_t mode) override {
        if (times_-- > 0) {
            std::string text = contentOf(file_);
            text.insert(text.rfind("END:VCALENDAR"),
                        "BEGIN:VTODO\r\nUID:todo-" + std::to_string(times_) + "\r\nEND:VTODO\r\n");
            test::write(file_.string() + ".other", text);
            std::filesystem::rename(file_.string() + ".other", file_);
        }
        return UnsynchronisedCalls::createFile(path, mode);
    }

  private:
    std::filesystem::path file_;
    int times_;
};

TEST(GuardedCalendar, KeepsTheEditsOfAProgramThatKnowsNoLock) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "Quode.ics";
    IcalEventStore(folder.path(), quickSurroundings()).saveEvent(alarmOnDay(1));
    IcalEventStore store(folder.path(), surroundingsWith(std::make_shared<OtherProgram>(file, 3)));
    const SavedEvent saved = store.saveEvent(alarmOnDay(2));
    ASSERT_TRUE(saved.status.ok) << saved.status.message;
    EXPECT_EQ(store.ownEvents().events.size(), 2U);
    for (const char* todo : {"todo-0", "todo-1", "todo-2"}) EXPECT_THAT(contentOf(file), HasSubstr(todo));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / ".Quode.ics.tmp"));
}

TEST(GuardedCalendar, GivesUpOnAProgramThatNeverRests) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "Quode.ics";
    const SavedEvent first = IcalEventStore(folder.path(), quickSurroundings()).saveEvent(alarmOnDay(1));
    IcalEventStore store(folder.path(), surroundingsWith(std::make_shared<OtherProgram>(file, 1000)));
    EXPECT_THAT(store.removeEvent(first.identifier).message, HasSubstr("Another program keeps changing"));
    EXPECT_TRUE(store.findEvent(first.identifier).event);
}

TEST(GuardedCalendar, CarriesTheMarkOfItsInstallation) {
    const TemporaryFolder folder;
    StoreSurroundings ours = quickSurroundings(), theirs = quickSurroundings();
    ours.mark = "00000000000000aa";
    theirs.mark = "00000000000000bb";
    const SavedEvent saved = IcalEventStore(folder.path(), ours).saveEvent(alarmOnDay(1));
    IcalEventStore other(folder.path(), theirs);
    EXPECT_EQ(other.findEvent(saved.identifier).event->mark, ours.mark);
    EXPECT_THAT(contentOf(folder.path() / "Quode.ics"), HasSubstr("\r\nX-QUODE-INSTALLATION:00000000000000aa\r\n"));
    other.saveEvent(*other.findEvent(saved.identifier).event);
    EXPECT_EQ(other.findEvent(saved.identifier).event->mark, theirs.mark) << "who saves it has it";
}

TEST(GuardedCalendar, IsForTheUserAlone) {
    const TemporaryFolder folder;
    const auto data = folder.path() / "share/Quode";
    IcalEventStore(data, quickSurroundings()).saveEvent(alarmOnDay(1));
    EXPECT_EQ(modeOf(folder.path() / "share"), 0700U);
    EXPECT_EQ(modeOf(data), 0700U);
    EXPECT_EQ(modeOf(data / "Quode.ics"), 0600U);
    EXPECT_EQ(modeOf(data / ".Quode.ics.lock"), 0600U);
}

TEST(GuardedCalendar, LosesTheTemporaryFilesOfSavesThatWereCutOff) {
    const TemporaryFolder folder;
    VdirEventStore store(folder.path(), quickSurroundings());
    const SavedEvent saved = store.saveEvent(alarmOnDay(1));
    write(folder.path() / ("." + saved.identifier + ".ics.tmp"), "BEGIN:VC");
    write(folder.path() / ".hidden", "of somebody else");
    store.removeLeftOvers();
    EXPECT_FALSE(std::filesystem::exists(folder.path() / ("." + saved.identifier + ".ics.tmp")));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / ".hidden"));
    EXPECT_TRUE(store.findEvent(saved.identifier).event);
}

}  // namespace
}  // namespace quode::test
