// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Switching alarms on and off: their rows and their events.
#include "database_functions_fixture.h"

#include <future>

namespace quode {
namespace {

using test::utc;
using testing::HasSubstr;
using testing::IsEmpty;

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
