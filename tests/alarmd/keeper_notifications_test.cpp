// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A notification service that is slow, ends, is missing or refuses.
#include "keeper_fixture.h"

namespace quode::test {
namespace {

using testing::IsEmpty;

class KeeperNotificationsTest : public AlarmKeeperTest {};

TEST_F(KeeperNotificationsTest, OffersARingAgainThatNobodyCouldSee) {
    desk.hasService = false;
    const sys_seconds due = plannedRing(202);
    clock->present = due;
    EXPECT_EQ(keeper->wake(), due + seconds(30)) << "it looks for a service";
    EXPECT_EQ(desk.sounds.size(), 1U);
    clock->present = due + seconds(20);
    desk.hasService = true;
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.sounds.size(), 1U) << "it sounds already";
    keeper->stop(shownAs(1));
    runUntil(due + minutes(20));
    EXPECT_EQ(desk.rings.size(), 1U);
}

TEST_F(KeeperNotificationsTest, OffersARingForAQuarterOfAnHour) {
    const sys_seconds due = plannedRing(202);
    desk.hasService = false;
    runUntil(due + minutes(14));
    desk.hasService = true;
    keeper->wake();
    ASSERT_EQ(desk.rings.size(), 1U);
    EXPECT_EQ(desk.rings[0].late, minutes(14));
    EXPECT_EQ(desk.sounds.size(), 2U) << "the first sound is long over";
}

TEST_F(KeeperNotificationsTest, OffersNothingLaterThanThat) {
    const sys_seconds due = plannedRing(202);
    desk.hasService = false;
    runUntil(due + minutes(16));
    desk.hasService = true;
    keeper->wake();
    EXPECT_THAT(desk.rings, IsEmpty());
}

TEST_F(KeeperNotificationsTest, TakesAnAnswerOfASlowServiceForTheRingItBelongsTo) {
    switchOn(202);
    keeper->wake();
    clock->present = dueOf(202);
    desk.isSlow = true;
    keeper->wake();
    EXPECT_EQ(desk.sounds.size(), 1U) << "the sound does not wait";
    clock->present += seconds(40);
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
    desk.answer();
    keeper->stop(shownAs(1));
    EXPECT_EQ(desk.silenced, std::vector<int>{202});
}

TEST_F(KeeperNotificationsTest, ClosesOnceWhatTheUserAnswers) {
    const auto closedBy = [this](const std::function<void(const NotificationId&)>& answer) {
        clock->present = plannedRing(202);
        keeper->wake();
        const NotificationId shown = shownAs(desk.lastNumber);
        answer(shown);
        keeper->closed(shown);  // the service says that it is
        keeper->stop(shown);
        clock->present += hours(1);
        keeper->wake();
        return std::exchange(desk.closed, {}) == std::vector<std::uint32_t>{shown.number};
    };
    EXPECT_TRUE(closedBy([this](const NotificationId& shown) { keeper->stop(shown); }));
    EXPECT_TRUE(closedBy([this](const NotificationId& shown) { keeper->snooze(shown); }));
    EXPECT_TRUE(closedBy([this](const NotificationId& shown) { keeper->stop({shown.run, 0}); }));
    EXPECT_TRUE(closedBy([this](const NotificationId& shown) { keeper->mute(shown); }));
}

TEST_F(KeeperNotificationsTest, ClosesNothingThatIsClosed) {
    clock->present = plannedRing(202);
    keeper->wake();
    keeper->closed(shownAs(1));
    EXPECT_EQ(desk.silenced, std::vector<int>{202});
    EXPECT_THAT(desk.closed, IsEmpty());
}

TEST_F(KeeperNotificationsTest, DoesNotRepeatARingThatWasAskedForBeforeAKill) {
    switchOn(202);
    keeper->wake();
    clock->present = dueOf(202);
    desk.isSlow = true;
    keeper->wake();
    desk.pending.clear();  // killed before the answer
    restart();
    clock->present += seconds(5);
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
    keeper->snooze(shownAs(41));  // a number that it never learned
    EXPECT_EQ(desk.closed, std::vector<std::uint32_t>{41});
    desk.isSlow = false;
    runUntil(floor<seconds>(clock->present) + minutes(5));
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(KeeperNotificationsTest, RepeatsARingThatAnEarlierRunOfTheServiceDidNotAnswer) {
    switchOn(202);
    keeper->wake();
    clock->present = dueOf(202);
    desk.isSlow = true;
    keeper->wake();
    desk.pending.clear();
    restart();
    desk.service = "service-2";
    desk.isSlow = false;
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(KeeperNotificationsTest, IgnoresAnAnswerToANumberOfAnEarlierRunOfTheService) {
    switchOn(202);
    switchOn(203);
    runUntil(dueOf(202));
    desk.service = "service-2";  // a new login: numbers count from 1 again
    desk.lastNumber = 0;
    restart();
    runUntil(dueOf(203));
    ASSERT_EQ(desk.rings.size(), 2U);
    const sys_seconds snoozed = floor<seconds>(clock->present);
    keeper->snooze(shownAs(1));
    EXPECT_EQ(desk.silenced, std::vector<int>{203});
    runUntil(snoozed + minutes(6));
    ASSERT_EQ(desk.rings.size(), 3U);
    EXPECT_EQ(desk.rings[2].alarm.code, 203);
}

// A service that ends is reported twice: another one is there, and then the request gets no answer.
TEST_F(KeeperNotificationsTest, OffersARingAgainWhenItsServiceEndsWithoutAnAnswer) {
    switchOn(202);
    keeper->wake();
    clock->present = dueOf(202);
    desk.isSlow = true;
    keeper->wake();
    int calls = 0;
    keeper->onUnseen = [&calls] { ++calls; };
    clock->present += seconds(10);
    desk.service = "service-2";
    desk.isSlow = false;
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
    std::exchange(desk.pending, {}).at(0)(std::nullopt);
    EXPECT_EQ(calls, 1) << "somebody has to wake it: the next alarm may be hours away";
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 2U);
    keeper->stop(shownAs(1));
    runUntil(floor<seconds>(clock->present) + minutes(20));
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(KeeperNotificationsTest, DoesNotPressAServiceThatRefuses) {
    const sys_seconds due = plannedRing(202);
    clock->present = due;
    desk.isSlow = true;
    for (int second = 0; second < 60; ++second) {
        wakeAt(due + seconds(second));
        for (const auto& refuse : std::exchange(desk.pending, {})) refuse(std::nullopt);
    }
    EXPECT_EQ(desk.rings.size(), 2U);
}

TEST_F(KeeperNotificationsTest, TakesTheAnswerToEitherOfTwoNotificationsOfARing) {
    const sys_seconds due = plannedRing(202);
    clock->present = due;
    desk.beforeRing = [this] {
        desk.lastNumber = 41;
        throw std::runtime_error("killed");
    };  // it was shown as number 41
    keeper->wake();
    desk.beforeRing = nullptr;
    restart();
    keeper->wake();
    EXPECT_EQ(desk.rings.size(), 1U);
    keeper->snooze(shownAs(41));
    EXPECT_THAT(desk.closed, testing::ElementsAre(41, 42)) << "both are over";
    clock->present = due + minutes(1);
    keeper->snooze(shownAs(41));  // he thinks better of it
    runUntil(due + minutes(5) + seconds(59));
    EXPECT_EQ(desk.rings.size(), 1U);
    runUntil(due + minutes(6));
    EXPECT_EQ(desk.rings.size(), 2U);
}

}  // namespace
}  // namespace quode::test
