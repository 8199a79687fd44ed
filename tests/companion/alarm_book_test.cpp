// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Alarms and their events, changed together.
#include "companion/AlarmBook.h"

#include <gmock/gmock.h>

#include <fstream>

#include "alarms/AlarmJournal.h"
#include "common/GlobalFuncs.h"
#include "companion/installation_mark.h"
#include "companion/user_connection.h"
#include "fixture.h"
#include "platform/ical_event_store.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"

namespace quode::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using Kind = AlarmIntent::Kind;

constexpr int fajr = 200, maghrib = 204;

class AlarmBookTest : public CompanionTest {
  protected:
    AlarmBookTest() {
        clock.present = utc("2026-11-21 04:00");
        Platform platform = FakePlatform().platform();
        platform.clock = std::shared_ptr<Clock>(&clock, [](Clock*) {});
        platform.files = posixFiles();
        platform.dataFolder = folder.path();
        GlobalFuncs::startUp(platform);
        database.emplace(open());
        book.emplace(folder.path(), *database, calendar, std::chrono::milliseconds(0));
    }

    std::vector<CalendarEvent> events() { return calendar.ownEvents().events; }
    std::string eventOf(int code) { return database->alarm(code).eventIdentifier; }

    /// A program that was cut off after it had written down what it was about to do.
    void leave(const AlarmIntent& intent) { AlarmJournal(folder.path(), {}).begin(intent); }
    bool isPending() const { return AlarmJournal::isPending(folder.path()); }

    UserEventStore calendar{folder.path(), CalendarLayout::ics};
    std::optional<UserDatabase> database;
    std::optional<AlarmBook> book;
};

TEST_F(AlarmBookTest, SwitchesAnAlarmAndItsEventTogether) {
    EXPECT_TRUE(book->switchOn(maghrib).ok());
    EXPECT_TRUE(database->alarm(maghrib).isOn);
    ASSERT_EQ(events().size(), 1U);
    EXPECT_EQ(events()[0].identifier, eventOf(maghrib));
    EXPECT_EQ(events()[0].start, utc("2026-11-21 14:50"));
    EXPECT_TRUE(book->switchOff(maghrib).ok());
    EXPECT_FALSE(database->alarm(maghrib).isOn);
    EXPECT_EQ(eventOf(maghrib), "");
    EXPECT_THAT(events(), IsEmpty());
    EXPECT_FALSE(isPending());
}

TEST_F(AlarmBookTest, ReportsACalendarThatFails) {
    std::filesystem::create_directory(folder.path() / "Quode.ics");
    const AlarmChange change = book->switchOn(fajr);
    EXPECT_TRUE(change.isStored);
    EXPECT_FALSE(change.isPlaced);
    EXPECT_THAT(change.message, HasSubstr("Quode.ics"));
    EXPECT_TRUE(database->alarm(fajr).isOn);
}

TEST_F(AlarmBookTest, RenewsWithoutSwitchingOnWhatTheUserHasSwitchedOff) {
    book->switchOn(maghrib);
    // The service has read the alarm as on, and the user is faster.
    const auto switchesOff = [&](const UserAlarm& alarm) {
        if (alarm.code == maghrib) database->connection().run("UPDATE USER_ALARMS SET ACTIVE = 0 WHERE TIMEID = 5");
        return false;
    };
    clock.present = utc("2026-11-22 04:00");
    EXPECT_TRUE(book->renew(switchesOff).ok());
    EXPECT_FALSE(database->alarm(maghrib).isOn);
    EXPECT_THAT(events(), IsEmpty());
}

TEST_F(AlarmBookTest, MovesTheEventsWithTheHome) {
    book->switchOn(maghrib);
    const int berlin = cityNamed("Berlin");
    EXPECT_TRUE(book->change([&] {
                        database->addCity(berlin);
                        database->chooseHome(berlin);
                    })
                    .ok());
    ASSERT_EQ(events().size(), 1U);
    EXPECT_EQ(events()[0].start, utc("2026-11-21 15:17"));
}

TEST_F(AlarmBookTest, LeavesNothingToDoBehindAChangeThatWasRefused) {
    EXPECT_THROW(book->change([&] { database->removeCity(-5); }), UserDatabaseError);
    EXPECT_FALSE(isPending());
}

// --- programs that were cut off

TEST_F(AlarmBookTest, RemovesAnEventThatWasWrittenAndNotNoted) {
    const CalendarEvent event{.identifier = calendar.newIdentifier(),
                              .title = "Prayer Alarm",
                              .location = "Quode",
                              .start = utc("2026-11-21 14:50"),
                              .end = utc("2026-11-21 14:51")};
    leave({Kind::on, 5, event.identifier});
    ASSERT_TRUE(calendar.saveEvent(event).status.ok);
    EXPECT_TRUE(book->finishPending().ok());
    EXPECT_THAT(events(), IsEmpty());
    EXPECT_FALSE(isPending());
}

TEST_F(AlarmBookTest, WritesTheEventOfAnAlarmThatWasSwitchedOnInTheDatabaseOnly) {
    leave({Kind::on, 5, "quode-00000000-0000-4000-8000-000000000000"});
    database->connection().run("UPDATE USER_ALARMS SET ACTIVE = 1 WHERE TIMEID = 5");
    EXPECT_TRUE(book->finishPending().ok());
    ASSERT_EQ(events().size(), 1U);
    EXPECT_EQ(events()[0].identifier, eventOf(maghrib));
    EXPECT_FALSE(isPending());
}

TEST_F(AlarmBookTest, FinishesSwitchingOff) {
    book->switchOn(maghrib);
    leave({Kind::off, 5, eventOf(maghrib)});
    database->connection().run("UPDATE USER_ALARMS SET EVENTID = '' WHERE TIMEID = 5");
    EXPECT_TRUE(book->finishPending().ok());
    EXPECT_FALSE(database->alarm(maghrib).isOn);
    EXPECT_THAT(events(), IsEmpty());
}

TEST_F(AlarmBookTest, FinishesWhatWasLeftBeforeItsOwnChange) {
    book->switchOn(maghrib);
    leave({Kind::off, 5, eventOf(maghrib)});
    EXPECT_TRUE(book->switchOn(maghrib).ok());
    EXPECT_TRUE(database->alarm(maghrib).isOn) << "the later request counts";
    EXPECT_EQ(events().size(), 1U);
}

TEST_F(AlarmBookTest, RemovesTheTemporaryFilesOfASaveThatWasCutOff) {
    std::ofstream(folder.path() / ".Quode.ics.tmp") << "BEGIN:VCAL";
    leave({});
    EXPECT_TRUE(book->finishPending().ok());
    EXPECT_FALSE(std::filesystem::exists(folder.path() / ".Quode.ics.tmp"));
}

TEST_F(AlarmBookTest, GivesWayWhenAnotherProgramIsAtIt) {
    const AlarmJournal other(folder.path(), {});
    const AlarmChange change = book->switchOn(fajr);
    EXPECT_FALSE(change.isStored);
    EXPECT_TRUE(change.isBusy);
    EXPECT_THAT(change.message, HasSubstr("Another program is changing the alarms"));
    EXPECT_FALSE(database->alarm(fajr).isOn);
}

// --- layouts and events of others

TEST_F(AlarmBookTest, TakesTheEventsToAnotherLayoutAndLeavesThoseOfOthers) {
    book->switchOn(maghrib);
    StoreSurroundings elsewhere;
    elsewhere.mark = "0123456789abcdef";
    CalendarEvent foreign = events()[0];
    foreign.identifier = calendar.newIdentifier();
    ASSERT_TRUE(IcalEventStore(folder.path(), elsewhere).saveEvent(foreign).status.ok);
    const auto save = [&] {
        UserSettings settings = loadSettings(*database);
        settings.calendarLayout = CalendarLayout::vdir;
        saveSettings(*database, settings);
    };
    EXPECT_TRUE(book->changeLayout(calendar, CalendarLayout::vdir, save).ok());
    ASSERT_EQ(events().size(), 1U);
    EXPECT_EQ(events()[0].identifier, eventOf(maghrib));
    const EventList left = UserEventStore(folder.path(), CalendarLayout::ics).ownEvents();
    ASSERT_EQ(left.events.size(), 1U);
    EXPECT_EQ(left.events[0].identifier, foreign.identifier);
}

TEST_F(AlarmBookTest, ListsAndRemovesOnlyEventsOfThisInstallation) {
    book->switchOn(maghrib);
    CalendarEvent stray = events()[0];
    stray.identifier = calendar.newIdentifier();
    ASSERT_TRUE(calendar.saveEvent(stray).status.ok);
    StoreSurroundings elsewhere;
    elsewhere.mark = "0123456789abcdef";
    CalendarEvent foreign = stray;
    foreign.identifier = calendar.newIdentifier();
    ASSERT_TRUE(IcalEventStore(folder.path(), elsewhere).saveEvent(foreign).status.ok);
    ASSERT_EQ(book->eventsWithoutAlarm().size(), 1U);
    EXPECT_EQ(book->eventsWithoutAlarm()[0].identifier, stray.identifier);
    EXPECT_TRUE(book->removeEventsWithoutAlarm().ok());
    EXPECT_THAT(book->eventsWithoutAlarm(), IsEmpty());
    EXPECT_EQ(events().size(), 2U);
}

TEST_F(AlarmBookTest, RenewingRemovesAnEventThatAnotherProgramBroughtBack) {
    const auto comesBack = [&] {
        book->switchOn(maghrib);
        const CalendarEvent former = events()[0];
        ASSERT_TRUE(book->switchOff(maghrib).ok());
        ASSERT_TRUE(calendar.saveEvent(former).status.ok);  // from a copy that the other program had read before
        ASSERT_EQ(events().size(), 1U);
    };
    comesBack();
    EXPECT_TRUE(book->renew().ok());
    EXPECT_THAT(events(), IsEmpty());
    comesBack();
    EXPECT_TRUE(book->change([] {}).ok());
    EXPECT_THAT(events(), IsEmpty());
}

TEST_F(AlarmBookTest, RemovesTheEventsOfADatabaseThatWasDamaged) {
    book->switchOn(maghrib);
    book.reset();
    database.reset();
    std::ofstream(file(), std::ios::binary) << std::string(4096, 'x');
    database.emplace(open());
    ASSERT_FALSE(database->notices().empty());
    book.emplace(folder.path(), *database, calendar);
    EXPECT_TRUE(book->finishPending().ok());
    EXPECT_THAT(events(), IsEmpty());
}

TEST(InstallationMark, DependsOnDeviceAndFolderAndTellsNeither) {
    const TemporaryFolder folder;
    const std::filesystem::path machine = folder.path() / "machine-id", other = folder.path() / "other-id";
    std::ofstream(machine) << "0123456789abcdef0123456789abcdef\n";
    std::ofstream(other) << "fedcba9876543210fedcba9876543210\n";
    const std::string mark = installationMark("/data", machine);
    EXPECT_EQ(mark.size(), 16U);
    EXPECT_EQ(mark, installationMark("/data", machine));
    EXPECT_NE(mark, installationMark("/data", other));
    EXPECT_NE(mark, installationMark("/elsewhere", machine));
}

}  // namespace
}  // namespace quode::test
