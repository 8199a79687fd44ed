// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <map>
#include <set>

#include "keeper_fixture.h"

namespace quode::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

// --- ringing

TEST_F(AlarmKeeperTest, RingsAtTheMinuteOfThePrayer) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    EXPECT_EQ(keeper->wake(), due);
    clock->present = due - seconds(1);
    EXPECT_EQ(keeper->wake(), due);
    EXPECT_THAT(desk.rings, IsEmpty());
    wakeAt(due);
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].alarm.code, 202);
    EXPECT_EQ(desk.rings[0].alarm.due, due);
    EXPECT_EQ(desk.rings[0].city, "Istanbul");
    EXPECT_EQ(desk.sounds, std::vector<std::string>{"bell"});
    EXPECT_EQ(desk.rings[0].late, minutes(0));
}

TEST_F(AlarmKeeperTest, TakesTheDefaultSoundForAnAlarmWithoutOne) {
    switchOn(202, 0, "");
    clock->present = dueOf(202) - minutes(1);
    runUntil(dueOf(202));
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.sounds, std::vector<std::string>{"chime"});
}

TEST_F(AlarmKeeperTest, RingsOnceHoweverOftenItIsWoken) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    keeper->wake();
    for (int second = 0; second < 120; second += 7) {
        wakeAt(due + seconds(second));
    }
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(AlarmKeeperTest, RingsEachAlarmOfAMonthExactlyOnceADay) {
    const std::map<int, int> offsets{{200, -30}, {201, 0}, {202, 10}, {203, 0}, {204, -5}, {205, 400}};
    for (const auto& [code, offset] : offsets) switchOn(code, offset);
    const sys_seconds start = floor<seconds>(clock->present);
    keeper->wake();
    wakeAt(start + hours(8));  // past the night's ring of the day before
    desk.rings.clear();
    told.clear();
    runUntil(start + hours(8) + days(31));

    std::map<int, std::set<int>> daysOf;
    for (const Ring& ring : desk.rings) {
        EXPECT_TRUE(daysOf[ring.alarm.code].insert(ring.alarm.date.Months * 100 + ring.alarm.date.Days).second)
            << "rung twice: " << ring.alarm.code;
        EXPECT_EQ(ring.alarm.due - ring.alarm.prayer, minutes(offsets.at(ring.alarm.code)));
        EXPECT_EQ(ring.late, minutes(0));
    }
    for (const auto& [code, offset] : offsets) EXPECT_EQ(daysOf[code].size(), 31U) << code;
    EXPECT_LE(wakes, 7 * 31) << "it wakes for the rings and at midnight only";
    EXPECT_EQ(told, "");
}

TEST_F(AlarmKeeperTest, RingsOnceADayWhenItIsRestartedAllTheTime) {
    switchOn(200, -30);
    switchOn(204);
    const sys_seconds end = floor<seconds>(clock->present) + days(7);
    while (clock->present < end) {
        restart();
        keeper->wake();
        clock->present += minutes(4);
    }
    std::set<std::pair<int, sys_seconds>> distinct;
    for (const Ring& ring : desk.rings) distinct.insert({ring.alarm.code, ring.alarm.due});
    EXPECT_EQ(distinct.size(), 14U);
    EXPECT_EQ(desk.rings.size(), 14U);
}

TEST_F(AlarmKeeperTest, RingsAroundMidnight) {
    // Offsets that bring the night prayer to 23:59, 00:00 and 00:01.
    const sys_seconds midnight = utc("2026-10-17 21:00");
    const sys_seconds prayer = dueOf(205);
    for (const int minute : {-1, 0, 1}) {
        const sys_seconds wanted = midnight + minutes(minute);
        clock->present = wanted - hours(1);
        switchOn(205, int(duration_cast<minutes>(wanted - prayer).count()));
        desk.rings.clear();
        runUntil(wanted + minutes(30));
        ASSERT_EQ(desk.rings.size(), 1U) << minute;
        EXPECT_EQ(desk.rings[0].alarm.due, wanted);
        EXPECT_EQ(calendar->events.size(), 1U);
        EXPECT_GT(calendar->events.begin()->second.start, wanted + hours(20)) << "renewed for the next day";
        EXPECT_LT(calendar->events.begin()->second.start, wanted + hours(28));
    }
}

TEST_F(AlarmKeeperTest, RingsOnceOnTheDaysWhenTheClocksChange) {
    clock->setZone("CET-1CEST,M3.5.0,M10.5.0/3", "Europe/Berlin");
    for (const char* evening : {"2026-03-28 12:00", "2026-10-24 12:00"}) {
        std::filesystem::remove(folder.path() / "user.sqlite");
        restart();
        clock->present = utc(evening);
        for (int code = 200; code <= 205; ++code) switchOn(code);
        keeper->wake();
        desk.rings.clear();
        runUntil(utc(evening) + days(2));
        std::map<int, int> count;
        for (const Ring& ring : desk.rings) ++count[ring.alarm.code];
        for (int code = 200; code <= 205; ++code) EXPECT_EQ(count[code], 2) << code << " after " << evening;
    }
}

TEST_F(AlarmKeeperTest, FollowsAChangeOfTheZone) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    keeper->wake();
    EXPECT_EQ(calendar->events.begin()->second.start, due);
    clock->setZone("EST5EDT,M3.2.0,M11.1.0", "America/New_York");
    keeper->wake();
    EXPECT_EQ(calendar->events.begin()->second.start, due) << "the same instant by another wall clock";
    runUntil(due + minutes(1));
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].alarm.due, due);
}

// --- late, missed, set clocks

TEST_F(AlarmKeeperTest, RingsLateAndSaysSo) {
    switchOn(202);
    keeper->wake();
    wakeAt(dueOf(202) + minutes(7) + seconds(30));  // the machine slept
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].late, minutes(7));
}

TEST_F(AlarmKeeperTest, DropsWhatIsTooLate) {
    const sys_seconds due = plannedRing(202);
    clock->present = due + minutes(16);
    EXPECT_GT(keeper->wake(), due + minutes(16));
    EXPECT_THAT(desk.rings, IsEmpty());
    EXPECT_THAT(told, HasSubstr("missed by 16 min"));
    wakeAt(due + minutes(1));  // the clock is put back
    EXPECT_THAT(desk.rings, IsEmpty());
}

TEST_F(AlarmKeeperTest, RingsLateAfterALateStart) {
    const sys_seconds due = plannedRing(202);
    clock->present = due + minutes(10);
    restart();
    keeper->wake();
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].late, minutes(10));
}

TEST_F(AlarmKeeperTest, DoesNotRingForThePastWhenItStartsForTheFirstTime) {
    switchOn(202);
    wakeAt(dueOf(202) + minutes(2));
    EXPECT_THAT(desk.rings, IsEmpty());
}

TEST_F(AlarmKeeperTest, DoesNotRingForAnAlarmThatIsSwitchedOnAfterItsMoment) {
    keeper->wake();
    wakeAt(dueOf(202) + minutes(3));
    switchOn(202);
    keeper->wake();
    EXPECT_THAT(desk.rings, IsEmpty());
}

TEST_F(AlarmKeeperTest, DoesNotRingForThePastOfAnAlarmThatIsNew) {
    keeper->wake();  // at midnight; nothing wakes it until the user switches the alarm on
    clock->present = dueOf(202) + minutes(3);
    switchOn(202);
    keeper->wake();
    EXPECT_THAT(desk.rings, IsEmpty());
    runUntil(floor<seconds>(clock->present) + hours(25));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(AlarmKeeperTest, DoesNotRingForThePastOfAnAlarmThatIsMoved) {
    switchOn(202, 30);
    keeper->wake();
    clock->present = dueOf(202) + minutes(3);
    open().setUpAlarm(202, 0, "bell");
    keeper->wake();
    EXPECT_THAT(desk.rings, IsEmpty());
}

TEST_F(AlarmKeeperTest, RingsForAnAlarmThatIsSwitchedOnWithinItsMinute) {
    keeper->wake();
    clock->present = dueOf(202) + seconds(20);
    switchOn(202);
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(AlarmKeeperTest, DoesNotRingForThePastOfANewAlarmAfterACrash) {
    keeper->wake();
    clock->present = dueOf(202) + minutes(5);
    switchOn(202);
    keeper->wake();  // it sees the new alarm, and dies
    restart();
    clock->present += minutes(3);
    keeper->wake();
    EXPECT_THAT(desk.rings, IsEmpty());
}

TEST_F(AlarmKeeperTest, RingsOnAfterAClockThatRanYearsAhead) {
    switchOn(202);
    wakeAt(utc("2031-05-05 05:05"));
    clock->present = utc("2026-10-16 22:00");
    restart();
    const sys_seconds due = dueOf(202);
    EXPECT_EQ(keeper->wake(), due);
    runUntil(due);
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(AlarmKeeperTest, DoesNotRingAgainWhenTheClockIsPutBack) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    runUntil(due + minutes(1));
    clock->present = due - minutes(30);
    runUntil(due + minutes(1));
    EXPECT_EQ(desk.rings.size(), 1U);
}

// --- stop and snooze

TEST_F(AlarmKeeperTest, RingsAgainAfterASnooze) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    runUntil(due);
    clock->present += seconds(20);
    keeper->snooze(shownAs(1));
    EXPECT_EQ(desk.closed, std::vector<std::uint32_t>{1});
    EXPECT_EQ(desk.silenced, std::vector<int>{202});
    EXPECT_EQ(keeper->wake(), due + seconds(20) + minutes(5));
    runUntil(due + minutes(6));
    ASSERT_EQ(desk.rings.size(), 2U);
    EXPECT_EQ(desk.rings[1].alarm.due, due);
    EXPECT_EQ(desk.rings[1].late, minutes(0)) << "it rings when it was asked to";
    keeper->snooze(shownAs(2));
    runUntil(due + minutes(12));
    EXPECT_EQ(desk.rings.size(), 3U);
    keeper->stop(shownAs(3));
    runUntil(due + hours(1));
    EXPECT_EQ(desk.rings.size(), 3U);
}

TEST_F(AlarmKeeperTest, KeepsASnoozeOverARestart) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    runUntil(due);
    keeper->snooze(shownAs(1));
    restart();
    EXPECT_EQ(keeper->wake(), due + minutes(5));
    runUntil(due + minutes(5));
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(AlarmKeeperTest, ForgetsASnoozeWhoseAlarmIsSwitchedOff) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    runUntil(due);
    keeper->snooze(shownAs(1));
    DatabaseFunctions().deleteAlarm(202);
    runUntil(due + minutes(6));
    EXPECT_EQ(desk.rings.size(), 1U);
    DatabaseFunctions().reCalculateAlarm(202);
    runUntil(due + minutes(8));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(AlarmKeeperTest, AnswersARingOfAnEarlierRun) {
    switchOn(202);
    runUntil(dueOf(202));
    restart();
    keeper->snooze(shownAs(1));
    EXPECT_EQ(desk.closed, std::vector<std::uint32_t>{1});
    EXPECT_EQ(desk.silenced, std::vector<int>{202});
    runUntil(floor<seconds>(clock->present) + minutes(5));
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(AlarmKeeperTest, IgnoresAnAnswerToANotificationOfOthers) {
    switchOn(202);
    runUntil(dueOf(202));
    keeper->snooze(shownAs(77));
    keeper->stop(shownAs(78));
    EXPECT_THAT(desk.silenced, IsEmpty());
}

// --- the calendar

TEST_F(AlarmKeeperTest, KeepsTheEventAtTheNextRing) {
    switchOn(200, -15);
    for (int day = 0; day < 3; ++day) {
        keeper->wake();
        const sys_seconds due = dueOf(200, -15);
        EXPECT_EQ(calendar->events.size(), 1U);
        EXPECT_EQ(calendar->events.begin()->second.start, due);
        clock->present = due;
    }
}

TEST_F(AlarmKeeperTest, LeavesTheFilesAloneWhenNothingIsDue) {
    switchOn(200);
    switchOn(204);
    keeper->wake();
    const int saves = calendar->saves;
    const auto written = std::filesystem::last_write_time(folder.path() / "user.sqlite");
    for (int minute = 1; minute < 60; minute += 10) {
        clock->present += minutes(10);
        keeper->wake();
        EXPECT_FALSE(keeper->choicesChanged());
    }
    EXPECT_EQ(calendar->saves, saves);
    EXPECT_EQ(std::filesystem::last_write_time(folder.path() / "user.sqlite"), written);
}

TEST_F(AlarmKeeperTest, WritesAnEventAgainThatTheUserDeleted) {
    switchOn(204);
    keeper->wake();
    calendar->events.clear();
    keeper->wake();
    EXPECT_EQ(calendar->events.size(), 1U);
    EXPECT_EQ(calendar->events.begin()->second.start, dueOf(204));
}

TEST_F(AlarmKeeperTest, SeesWhatTheUserChooses) {
    keeper->wake();
    EXPECT_FALSE(keeper->choicesChanged());
    switchOn(204);
    EXPECT_TRUE(keeper->choicesChanged());
    EXPECT_EQ(keeper->wake(), dueOf(204));
    EXPECT_FALSE(keeper->choicesChanged());
    open().addPlace({"Hut", 47.5, 11.25});
    EXPECT_TRUE(keeper->choicesChanged());
    keeper->wake();
    open().chooseHome(-1);
    EXPECT_TRUE(keeper->choicesChanged());
    EXPECT_EQ(keeper->wake(), dueOf(204));
    EXPECT_EQ(calendar->events.begin()->second.start, dueOf(204));
    DatabaseFunctions().deleteAlarm(204);
    EXPECT_TRUE(keeper->choicesChanged());
    EXPECT_EQ(keeper->wake(), utc("2026-10-17 21:00")) << "midnight";
}

TEST_F(AlarmKeeperTest, RingsAlthoughTheCalendarFails) {
    switchOn(202);
    calendar->failing = true;
    runUntil(dueOf(202));
    EXPECT_EQ(desk.rings.size(), 1U);
    EXPECT_THAT(told, HasSubstr("The calendar refuses."));
}

TEST_F(AlarmKeeperTest, LeavesAnAlarmOffThatIsSwitchedOffWhileItWrites) {
    switchOn(202);
    switchOn(203);
    calendar->events.clear();  // so that both events have to be written
    calendar->beforeSave = [] { DatabaseFunctions().executeSQL("UPDATE USER_ALARMS SET ACTIVE = 0 WHERE TIMEID = 4"); };
    keeper->wake();
    EXPECT_TRUE(open().alarm(202).isOn);
    EXPECT_FALSE(open().alarm(203).isOn);
    EXPECT_EQ(calendar->events.size(), 1U);
}

TEST_F(AlarmKeeperTest, OnlyRenewsTheEventsWhenAnotherProgramRings) {
    switchOn(202);
    {
        UserDatabase database = open();
        UserSettings settings;
        settings.ringer = Ringer::evolution;
        saveSettings(database, settings);
    }
    const sys_seconds due = dueOf(202);
    runUntil(due + seconds(30));
    EXPECT_THAT(desk.rings, IsEmpty());
    EXPECT_EQ(calendar->events.begin()->second.start, due) << "it is left alone while the other program rings";
    runUntil(due + minutes(5));
    EXPECT_THAT(desk.rings, IsEmpty());
    EXPECT_GT(calendar->events.begin()->second.start, due + hours(23));
    {
        UserDatabase database = open();
        saveSettings(database, UserSettings{});
    }
    runUntil(due + minutes(10));
    EXPECT_THAT(desk.rings, IsEmpty()) << "the other program has rung already";
    runUntil(due + hours(25));
    EXPECT_EQ(desk.rings.size(), 1U);
}

}  // namespace
}  // namespace quode::test
