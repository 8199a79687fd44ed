// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the service makes of days of the week, second rings and silence. The clock begins on Saturday, 17 October 2026.
#include "companion/AlarmHabits.h"

#include <fstream>

#include "companion/user_connection.h"
#include "keeper_fixture.h"

namespace quode::test {
namespace {

constexpr int dhuhr = 202;

class AlarmHabitsTest : public AlarmKeeperTest {
  protected:
    AlarmHabitsTest() { switchOn(dhuhr); }

    void change(const std::function<void(UserAlarm&)>& change) {
        UserDatabase database = open();
        UserAlarm alarm = database.alarm(dhuhr);
        change(alarm);
        storeHabits(database.connection(), alarm);
    }

    /// The weekdays on which rings of a fortnight come, 0 = Sunday.
    std::vector<unsigned> weekdaysOfAFortnight() {
        runUntil(floor<seconds>(clock->present) + days(14));
        std::vector<unsigned> found;
        for (const Ring& ring : desk.rings) found.push_back(weekday(floor<days>(ring.alarm.due)).c_encoding());
        return found;
    }
};

TEST_F(AlarmHabitsTest, RingsOnTheChosenDaysOnly) {
    change([](UserAlarm& alarm) { alarm.days = 1U << 1 | 1U << 5; });
    EXPECT_EQ(weekdaysOfAFortnight(), (std::vector<unsigned>{1, 5, 1, 5}));
}

TEST_F(AlarmHabitsTest, RingsASecondTimeAtItsOwnMoment) {
    change([](UserAlarm& alarm) { alarm.reminder = -20; });
    const sys_seconds due = dueOf(dhuhr);
    runUntil(due + hours(1));
    ASSERT_EQ(desk.rings.size(), 2U);
    EXPECT_EQ(desk.rings[0].alarm.due, due - minutes(20));
    EXPECT_EQ(desk.rings[1].alarm.due, due);
}

TEST_F(AlarmHabitsTest, KeepsTheEventAtTheRingItself) {
    change([](UserAlarm& alarm) { alarm.reminder = -20; });
    keeper->wake();
    ASSERT_EQ(calendar->events.size(), 1U);
    EXPECT_EQ(calendar->events.begin()->second.start, dueOf(dhuhr));
}

TEST_F(AlarmHabitsTest, LeavesOutASkippedRingAndItsEvent) {
    const sys_seconds due = dueOf(dhuhr);
    change([due](UserAlarm& alarm) { alarm.skippedUntil = due; });
    keeper->wake();
    EXPECT_TRUE(calendar->events.empty() || calendar->events.begin()->second.start > due);
    runUntil(due + days(1) + hours(1));
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_GT(desk.rings[0].alarm.due, due + hours(23));
}

TEST_F(AlarmHabitsTest, IsSilentWhileAllIsMuted) {
    const sys_seconds due = dueOf(dhuhr);
    UserDatabase database = open();
    muteUntil(database, due + hours(1));
    runUntil(due + minutes(30));
    EXPECT_TRUE(desk.rings.empty());
    EXPECT_EQ(keeper->choicesChanged(), false);
    muteUntil(database, {});
    EXPECT_TRUE(keeper->choicesChanged());
    runUntil(due + minutes(40));
    EXPECT_TRUE(desk.rings.empty()) << "what was silent is not made up for";
    runUntil(due + days(1) + hours(1));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(AlarmHabitsTest, EndsASnoozedRingThatIsMutedMeanwhile) {
    const sys_seconds due = dueOf(dhuhr);
    runUntil(due);
    keeper->wake();
    ASSERT_EQ(desk.rings.size(), 1U);
    keeper->snooze(shownAs(1));
    UserDatabase database = open();
    muteUntil(database, due + hours(5));
    runUntil(due + minutes(30));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(AlarmHabitsTest, ShowsNoRingThatIsMutedBeforeItIsVisible) {
    const sys_seconds due = dueOf(dhuhr);
    desk.hasService = false;
    runUntil(due + minutes(1));
    ASSERT_EQ(desk.sounds.size(), 1U);
    UserDatabase database = open();
    muteUntil(database, due + hours(5));
    desk.hasService = true;
    runUntil(due + minutes(14));
    EXPECT_TRUE(desk.rings.empty());
    EXPECT_EQ(desk.sounds.size(), 1U);
}

TEST_F(AlarmHabitsTest, MutesTheRestOfTheDayOnAnAnswer) {
    switchOn(203);
    const sys_seconds due = dueOf(dhuhr), asr = dueOf(203);
    runUntil(due);
    keeper->wake();
    ASSERT_EQ(desk.rings.size(), 1U);
    keeper->mute({desk.service, 99});
    EXPECT_FALSE(mutedUntil(open())) << "that was another program's";
    keeper->mute(shownAs(1));
    EXPECT_EQ(mutedUntil(open()), utc("2026-10-17 21:00:00")) << "midnight in Istanbul";
    runUntil(asr + hours(1));
    EXPECT_EQ(desk.rings.size(), 1U);
    runUntil(due + days(1));
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(AlarmHabitsTest, AreUnderstoodAfterARestart) {
    change([](UserAlarm& alarm) {
        alarm.days = 1U << 0;
        alarm.reminder = 15;
    });
    keeper->wake();
    restart();
    EXPECT_EQ(weekdaysOfAFortnight(), (std::vector<unsigned>{0, 0, 0, 0}));
}

// What the service knew last is all that is left.
TEST_F(AlarmHabitsTest, OutliveADatabaseThatIsDamagedWhileNoServiceRuns) {
    const sys_seconds due = dueOf(dhuhr);
    change([due](UserAlarm& alarm) {
        alarm.reminder = -20;
        alarm.days = everyDay & ~(1U << 1);
        alarm.skippedUntil = due;
    });
    keeper->wake();
    keeper.reset();
    std::fstream(folder.path() / "user.sqlite", std::ios::in | std::ios::out) << std::string(100, '\0');
    restart();
    keeper->wake();
    const UserAlarm kept = open().alarm(dhuhr);
    EXPECT_TRUE(kept.isOn);
    EXPECT_EQ(kept.reminder, -20);
    EXPECT_EQ(kept.days, everyDay & ~(1U << 1));
    EXPECT_EQ(kept.silentUntil(), due);
    runUntil(due + days(1) + hours(1));
    ASSERT_EQ(desk.rings.size(), 2U) << "the first day is skipped";
    EXPECT_EQ(desk.rings[1].alarm.due - desk.rings[0].alarm.due, minutes(20));
}

}  // namespace
}  // namespace quode::test
