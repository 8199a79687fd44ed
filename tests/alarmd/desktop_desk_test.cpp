// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "alarmd/DesktopRingDesk.h"
#include "common/GlobalFuncs.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"
#include "support/zoned_clock.h"

namespace quode::test {
namespace {

using testing::ElementsAre;
using Events = std::vector<std::string>;

/// Services of a desktop that write down, in one list, what they are asked for.
struct Notifications : NotificationService {
    std::string run() override { return "run"; }
    void show(const Notification& notification, Answer answered) override {
        shown.push_back(notification);
        answered(NotificationId{"run", 1});
    }
    void close(const NotificationId&) override {}
    std::vector<Notification> shown;
};

struct Player : SoundPlayer {
    explicit Player(Events& list) : events(&list) {}
    void play(const Sound&, const Sound&, std::chrono::seconds, const Loudness& wanted) override {
        events->push_back("sound");
        loudness = wanted;
        if (isBroken) onEnd();
    }
    void stop() override { events->push_back("silence"); }
    Events* events;
    Loudness loudness;
    bool isBroken = false;
};

struct Media : MediaPlayers {
    explicit Media(Events& list) : events(&list) {}
    void pause() override { events->push_back("pause"); }
    void resume() override { events->push_back("resume"); }
    Events* events;
};

class DesktopDesk : public testing::Test {
  protected:
    DesktopDesk() {
        Platform platform = FakePlatform().platform();
        platform.files = posixFiles();
        services = &GlobalFuncs::startUp(platform);
        services->setApplicationBundlePath(QUODE_BUNDLE);
        desk = std::make_unique<DesktopRingDesk>(notifications, player, media, *services);
    }

    static Ring ringWith(const RingManner& manner) {
        const auto prayer = utc("2026-10-17 15:26");
        const AlarmOccurrence alarm{204, prayer, prayer, 18.4, VAKDateMake(17, 10, 2026, 0, 0, 0)};
        return {alarm, "Istanbul", "chime", std::chrono::minutes(0), manner};
    }

    Events events;
    Notifications notifications;
    Player player{events};
    Media media{events};
    GlobalFuncs* services = nullptr;
    std::unique_ptr<DesktopRingDesk> desk;
};

TEST_F(DesktopDesk, PausesMediaWhileAnAlarmSounds) {
    const Ring ring = ringWith({.pausesMedia = true});
    desk->sound(ring);
    EXPECT_THAT(events, ElementsAre("pause", "sound"));
    desk->silence(ring.alarm);
    EXPECT_THAT(events, ElementsAre("pause", "sound", "silence", "resume"));
}

TEST_F(DesktopDesk, LetsMediaPlayOnUnlessItIsChosen) {
    desk->sound(ringWith({}));
    EXPECT_THAT(events, ElementsAre("sound"));
}

TEST_F(DesktopDesk, LetsMediaGoOnWhenTheSoundHasEndedOrCannotBePlayed) {
    player.isBroken = true;
    desk->sound(ringWith({.pausesMedia = true}));
    EXPECT_THAT(events, ElementsAre("pause", "sound", "resume"));
}

TEST_F(DesktopDesk, PlaysAsLoudAsIsChosen) {
    desk->sound(ringWith({.volume = 60, .fadeIn = 20}));
    EXPECT_EQ(player.loudness.percent, 60);
    EXPECT_EQ(player.loudness.fadeIn, std::chrono::seconds(20));
}

TEST_F(DesktopDesk, ShowsARingAsUrgentUnlessTheUserDoesNotWantToBeDisturbed) {
    const auto ignore = [](const std::optional<NotificationId>&) {};
    desk->show(ringWith({}), ignore);
    desk->show(ringWith({.isUrgent = false}), ignore);
    EXPECT_TRUE(notifications.shown.at(0).isUrgent);
    EXPECT_FALSE(notifications.shown.at(1).isUrgent);
}

TEST(Gain, FollowsTheSlidersOfDesktops) {
    using namespace std::chrono_literals;
    EXPECT_EQ(gainOf({100}, 0s), 0.0);
    EXPECT_NEAR(gainOf({50}, 0s), -18.06, 0.01);
    EXPECT_NEAR(gainOf({10}, 0s), -60.0, 0.01);
}

TEST(Gain, GrowsUntilTheFadeInIsOver) {
    using namespace std::chrono_literals;
    const Loudness loudness{80, 20s};
    const double first = gainOf(loudness, 0s), middle = gainOf(loudness, 10s);
    EXPECT_LT(first, middle);
    EXPECT_LT(middle, gainOf(loudness, 20s));
    EXPECT_EQ(gainOf(loudness, 20s), gainOf({80}, 0s));
    EXPECT_EQ(gainOf(loudness, 50s), gainOf({80}, 0s));
    EXPECT_GT(first, -45.0) << "it is heard from the beginning";
}

}  // namespace
}  // namespace quode::test
