// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The module behind "app/desktop.h".
#include <systemd/sd-event.h>

#include <memory>
#include <stdexcept>

#include "app/desktop.h"
#include "platform/canberra_sound_player.h"
#include "platform/event_loop.h"
#include "platform/sdbus_media_players.h"
#include "platform/sdbus_notifications.h"

namespace quode::app {
namespace {

int endLoop(sd_event_source* source, std::uint64_t, void*) {
    return sd_event_exit(sd_event_source_get_event(source), 0);
}

/// A loop that ends after some time, or with a signal that ends the process.
EventLoop loopThatEndsAfter(std::chrono::seconds time) {
    EventLoop loop = newEventLoop();
    const auto count = static_cast<std::uint64_t>(std::chrono::microseconds(time).count());
    sd_event_add_time_relative(loop.get(), nullptr, CLOCK_MONOTONIC, count, 0, &endLoop, nullptr);
    return loop;
}

TrialResult ring(const TrialRing& trial) {
    TrialResult result;
    NotificationId id;
    const EventLoop loop = loopThatEndsAfter(trial.time);
    const auto notifications = sdBusNotifications(loop.get());
    const auto player = canberraSoundPlayer(loop.get());
    const auto stopped = [&](const NotificationId& which) {
        if (!result.isShown || which != id) return;
        result.isStopped = true;
        sd_event_exit(loop.get(), 0);
    };
    notifications->onAction = [&](const NotificationId& which, const std::string&) { stopped(which); };
    notifications->onClosed = stopped;
    bool isAnswered = false;
    const auto endIfInVain = [&] {
        if (isAnswered && !result.isShown && !result.soundProblem.empty()) sd_event_exit(loop.get(), 0);
    };
    player->onFailure = [&](std::string_view problem) {
        result.soundProblem = problem;
        endIfInVain();
    };
    isAnswered = trial.title.empty();
    if (!isAnswered) {
        notifications->show({trial.title, trial.body, {{"stop", trial.stopLabel}}, trial.manner.isUrgent},
                            [&](const std::optional<NotificationId>& shown) {
                                isAnswered = true;
                                result.isShown = shown.has_value();
                                id = shown.value_or(NotificationId{});
                                endIfInVain();
                            });
    }
    const auto media = sdBusMediaPlayers(loop.get());
    if (trial.manner.pausesMedia) media->pause();
    player->play(trial.sound, trial.sound, trial.time,
                 {trial.manner.volume, std::chrono::seconds(trial.manner.fadeIn)});
    sd_event_loop(loop.get());
    player->stop();
    if (result.isShown && !result.isStopped) notifications->close(id);
    return result;
}

}  // namespace
}  // namespace quode::app

extern "C" const quode::app::Desktop quodeDesktop;
const quode::app::Desktop quodeDesktop{&quode::checkNotifications, &quode::app::ring};
