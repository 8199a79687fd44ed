// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-event.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

#include "alarmd/AlarmKeeper.h"
#include "platform/NotificationService.h"
#include "platform/zone_name.h"

namespace quode {

/// Wakes the alarm keeper whenever something may have happened: at the moment that it named (also when that fell into a
/// suspension of the machine), when the clock is set, when the zone changes, when the user chooses something, and when
/// he answers a ring. It sleeps otherwise.
class AlarmService {
  public:
    /// What to do about the data folder, which may be deleted and recreated while it is served.
    enum class Service { go, wait, end };

    /// zoneFile     the file whose replacement means that the device has another zone
    /// mayServe     asked before each wake
    AlarmService(
        sd_event* loop, AlarmKeeper& keeper, NotificationService& notifications,
        const std::filesystem::path& dataFolder, const std::filesystem::path& zoneFile = systemZoneFile,
        std::function<Service()> mayServe = [] { return Service::go; });
    ~AlarmService();
    AlarmService(const AlarmService&) = delete;
    AlarmService& operator=(const AlarmService&) = delete;

    /// Serves until a signal ends the process.
    /// @return 0, or a negative error of the loop
    int run();

  private:
    struct Unref {
        void operator()(sd_event_source* source) const { sd_event_source_unref(source); }
    };
    using Source = std::unique_ptr<sd_event_source, Unref>;

    void wakeKeeper();
    int arm(std::chrono::sys_seconds next);
    void watchAgain();
    void startSettling();
    Source hearTimer();
    Source makeSettling();
    Source watchFolder(const std::filesystem::path& folder, sd_event_inotify_handler_t handler);

    static int timerExpired(sd_event_source* source, int descriptor, std::uint32_t events, void* self);
    static int dataFolderChanged(sd_event_source* source, const inotify_event* event, void* self);
    static int zoneFolderChanged(sd_event_source* source, const inotify_event* event, void* self);
    static int choicesSettled(sd_event_source* source, std::uint64_t time, void* self);

    sd_event* loop_;
    AlarmKeeper* keeper_;
    NotificationService* notifications_;
    std::filesystem::path dataFolder_;
    std::filesystem::path zoneFile_;
    std::function<Service()> mayServe_;
    int timer_;
    Source expiry_;
    Source settling_;            // waits until several changes of the user's have come together
    bool isRingUnseen_ = false;  // the desktop has answered that it does not show a ring
    Source dataFolderWatch_;
    bool isWatchLost_ = false;
    Source zoneFolderWatch_;
};

}  // namespace quode
