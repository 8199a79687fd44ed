// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/HomeWatch.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "host/fake_widget.h"
#include "host/places.h"

namespace quode::test {
namespace {

using host::HomeWatch;

constexpr int ankara = 323786;

class HomeWatchTest : public testing::Test {
  protected:
    FakeWatch* days = new FakeWatch;
    FakeWatch* choices = new FakeWatch;
    std::optional<int> home = istanbul;
    HomeWatch watch{std::unique_ptr<FakeWatch>(days), std::unique_ptr<FakeWatch>(choices),
                    [this] { return home ? std::to_string(*home) : ""; }};
    QSignalSpy happened{&watch, &HomeWatch::happened};
    const Clock::TimePoint moment{std::chrono::hours(24)};
};

TEST_F(HomeWatchTest, WatchesBothOrNeither) {
    watch.watchFor(moment);
    EXPECT_EQ(days->moment, moment);
    EXPECT_TRUE(choices->moment);
    watch.watchFor(std::nullopt);
    EXPECT_EQ(days->moment, std::nullopt);
    EXPECT_EQ(choices->moment, std::nullopt);
}

TEST_F(HomeWatchTest, TellsWhatTheOtherTells) {
    watch.watchFor(moment);
    Q_EMIT days->happened();
    EXPECT_EQ(happened.count(), 1);
}

TEST_F(HomeWatchTest, TellsOnceThatAnotherCityIsHome) {
    watch.watchFor(moment);
    home = ankara;
    Q_EMIT choices->happened();
    Q_EMIT choices->happened();
    EXPECT_EQ(happened.count(), 1);
}

TEST_F(HomeWatchTest, TellsOfTheFirstCityAndOfTheEndOfTheLast) {
    home.reset();
    watch.watchFor(moment);
    home = istanbul;
    Q_EMIT choices->happened();
    EXPECT_EQ(happened.count(), 1);
    home.reset();
    Q_EMIT choices->happened();
    EXPECT_EQ(happened.count(), 2);
}

TEST_F(HomeWatchTest, IsSilentWhenOtherChoicesWereWritten) {
    watch.watchFor(moment);
    Q_EMIT choices->happened();
    EXPECT_EQ(happened.count(), 0);
}

TEST_F(HomeWatchTest, ComparesWithTheHomeOfTheLastWatching) {
    watch.watchFor(moment);
    home = ankara;
    watch.watchFor(moment);
    Q_EMIT choices->happened();
    EXPECT_EQ(happened.count(), 0);
}

TEST_F(HomeWatchTest, TellsOfOtherChoicesAndLooksAgainOnlyWhileItWatches) {
    QSignalSpy others(&watch, &HomeWatch::otherChoicesWritten);
    watch.watchFor(moment);
    Q_EMIT choices->happened();
    EXPECT_EQ(others.count(), 1);
    EXPECT_EQ(happened.count(), 0);
    home = ankara;
    watch.lookAgain();
    EXPECT_TRUE(happened.wait(2000));
    watch.watchFor(std::nullopt);
    watch.lookAgain();
    EXPECT_FALSE(others.wait(700));
}

TEST_F(HomeWatchTest, TellsWhenWhatWasLockedCanBeReadThoughItIsTheSameAsBefore) {
    watch.watchFor(moment);
    watch.setShownWhole(false);
    home.reset();  // locked still
    EXPECT_FALSE(happened.wait(1200));
    home = istanbul;
    EXPECT_TRUE(happened.wait(1200));
    watch.watchFor(moment);
    watch.setShownWhole(false);  // another lock, which is gone before anybody compares
    EXPECT_TRUE(happened.wait(2500));
    watch.watchFor(moment);
    watch.setShownWhole(true);
    EXPECT_FALSE(happened.wait(1200));
}

TEST_F(HomeWatchTest, DoesNotLookSoonerBecauseFilesAreWritten) {
    watch.watchFor(moment);
    watch.setShownWhole(false);
    Q_EMIT choices->happened();
    EXPECT_EQ(happened.count(), 0);
    EXPECT_TRUE(happened.wait(1200));
}

}  // namespace
}  // namespace quode::test
