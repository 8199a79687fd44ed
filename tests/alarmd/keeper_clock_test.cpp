// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A clock that is wrong for a while.
#include "companion/AlarmHabits.h"
#include "keeper_fixture.h"

namespace quode::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class KeeperClockTest : public AlarmKeeperTest {};

TEST_F(KeeperClockTest, RingsAtItsTimeAfterAClockThatRanAheadForAMinute) {
    const sys_seconds due = plannedRing(202);
    wakeAt(due - hours(2));
    wakeWithClockSetTo(due + minutes(20));
    setClock(due - hours(2) + minutes(1));
    EXPECT_EQ(keeper->wake(), due);
    runUntil(due + minutes(1));
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].late, minutes(0));
}

TEST_F(KeeperClockTest, RingsLateForWhatAClockThatRanAheadPassedOver) {
    const sys_seconds due = plannedRing(202);
    wakeAt(due - minutes(1));
    wakeWithClockSetTo(due + hours(3));
    wakeAt(due + hours(3) + minutes(5));  // while it is wrong, five minutes pass
    EXPECT_THAT(desk.rings, IsEmpty());
    wakeWithClockSetTo(due + minutes(4));
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].late, minutes(4));
}

TEST_F(KeeperClockTest, RingsAgainAtItsTimeWhatAWrongClockBroughtHoursTooEarly) {
    const sys_seconds due = plannedRing(202);
    wakeAt(due - hours(5));
    wakeWithClockSetTo(due - minutes(1));
    wakeAt(due);
    EXPECT_EQ(desk.rings.size(), 1U);
    wakeWithClockSetTo(due - hours(5) + minutes(2));
    runUntil(due + minutes(1));
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(KeeperClockTest, RingsLateWhatAWrongClockBroughtTooEarlyWhenItIsPutRightTooLate) {
    const sys_seconds due = plannedRing(202);
    wakeAt(due - hours(2));
    wakeWithClockSetTo(due - minutes(1));
    wakeAt(due);
    EXPECT_EQ(desk.rings.size(), 1U);
    wakeAt(due + hours(2) + minutes(2));
    wakeWithClockSetTo(due + minutes(3));
    ASSERT_EQ(desk.rings.size(), 2U);
    EXPECT_EQ(desk.rings[1].late, minutes(3));
}

TEST_F(KeeperClockTest, RingsAgainAtItsTimeAfterAClockThatWasWrongInBothDirections) {
    const sys_seconds due = plannedRing(202);
    wakeAt(due - hours(9));
    wakeWithClockSetTo(due - hours(14));  // back, and killed meanwhile
    restart();
    wakeWithClockSetTo(due - hours(9) + minutes(1));  // right again
    wakeAt(due - hours(5));
    wakeWithClockSetTo(due - minutes(1));  // ahead
    restart();
    wakeAt(due);
    EXPECT_EQ(desk.rings.size(), 1U);
    wakeWithClockSetTo(due - hours(5) + minutes(2));
    runUntil(due + minutes(1));
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(KeeperClockTest, RingsOnceAlthoughTheClockIsBackForHours) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    runUntil(due + minutes(1));
    setClock(due - hours(6));
    runUntil(due + minutes(1));
    wakeWithClockSetTo(due + hours(6) + minutes(2));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperClockTest, DecidesNothingByAClockThatWasNeverSet) {
    const sys_seconds due = plannedRing(202);
    const sys_seconds planned = calendar->events.begin()->second.start;
    clock->present = due - minutes(5);
    keeper->rest();
    restart();
    boot = "boot-2";
    setClock(utc("1970-01-01 00:05"));
    EXPECT_LE(keeper->wake(), utc("1970-01-01 00:06"));
    EXPECT_EQ(calendar->events.begin()->second.start, planned) << "the event stays where it is";
    EXPECT_THAT(told, HasSubstr("The clock of this device has not been set"));
    wakeWithClockSetTo(due + minutes(2));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperClockTest, SleepsOnForFiveMinutesWhateverTheClockShows) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    runUntil(due);
    keeper->snooze(shownAs(1));
    keeper->wake();
    setClock(due - hours(1));
    EXPECT_EQ(keeper->wake(), due - hours(1) + minutes(5));
}

TEST_F(KeeperClockTest, RingsAfterASnoozeAlthoughAClockThatIsBackShowsAMuteThatHasEnded) {
    switchOn(202);
    const sys_seconds due = dueOf(202);
    UserDatabase database = open();
    muteUntil(database, due - hours(1));
    runUntil(due);
    keeper->wake();
    keeper->snooze(shownAs(1));
    keeper->wake();
    wakeWithClockSetTo(due - hours(6));
    runUntil(due - hours(6) + minutes(6));
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(KeeperClockTest, OffersARingForAQuarterOfAnHourWhateverTheClockShows) {
    const sys_seconds due = plannedRing(202);
    desk.hasService = false;
    runUntil(due + minutes(5));
    wakeWithClockSetTo(due + hours(8));
    runUntil(due + hours(8) + minutes(1));
    wakeWithClockSetTo(due + minutes(6));
    clock->present = due + minutes(11);
    desk.hasService = true;
    keeper->wake();
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].late, minutes(11));
}

TEST_F(KeeperClockTest, RingsLateAlthoughItIsKilledWhenTheClockIsPutRight) {
    const sys_seconds due = plannedRing(202);
    wakeAt(due - hours(2));
    wakeWithClockSetTo(due + hours(8));
    wakeAt(due + hours(10) + minutes(2));  // while it is wrong, more than two hours pass
    desk.beforeRing = [] { throw std::runtime_error("killed"); };
    wakeWithClockSetTo(due + minutes(2));
    EXPECT_THAT(desk.rings, IsEmpty());
    desk.beforeRing = nullptr;
    restart();
    wakeAt(due + minutes(5));
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].late, minutes(5));
}

TEST_F(KeeperClockTest, OffersAtItsTimeWhatAWrongClockBroughtTooEarlyForNobodyToSee) {
    const sys_seconds due = plannedRing(202);
    desk.hasService = false;
    wakeAt(due - minutes(40));
    wakeWithClockSetTo(due - minutes(1));
    runUntil(due + minutes(1));
    wakeWithClockSetTo(due - minutes(38));
    desk.hasService = true;
    runUntil(due - minutes(1));
    EXPECT_THAT(desk.rings, IsEmpty());
    runUntil(due + minutes(1));
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].late, minutes(0));
}

}  // namespace
}  // namespace quode::test
