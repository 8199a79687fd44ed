// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>
#include <systemd/sd-event.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/NotificationService.h"

namespace quode {

/// The program quode-service, which answers on the session bus, as a process of its own: whatever callers do to it,
/// the alarms ring. What it hears from them about a ring comes here through a pipe. When it ends it is started again,
/// later each time; a machine without it, or without a bus, has alarms all the same.
class BusProcess {
  public:
    /// A ring was answered: its notification, with the number 0 for all that ring, and "stop" or "snooze".
    using Answered = std::function<void(const NotificationId& notification, const std::string& action)>;

    /// The loop must outlive the object, and SIGCHLD be blocked.
    BusProcess(sd_event* loop, std::filesystem::path program, Answered answered,
               std::function<void(std::string_view)> tell);
    ~BusProcess();
    BusProcess(const BusProcess&) = delete;
    BusProcess& operator=(const BusProcess&) = delete;

  private:
    struct Unref {
        void operator()(sd_event_source* source) const { sd_event_source_unref(source); }
    };
    using Source = std::unique_ptr<sd_event_source, Unref>;

    void start();
    void take(std::string_view line);

    static int heard(sd_event_source* source, int descriptor, std::uint32_t events, void* self);
    static int ended(sd_event_source* source, const siginfo_t* information, void* self);
    static int startAgain(sd_event_source* source, std::uint64_t time, void* self);

    sd_event* loop_;
    std::filesystem::path program_;
    Answered answered_;
    std::function<void(std::string_view)> tell_;
    int pipe_ = -1;
    pid_t process_ = 0;
    std::uint64_t delaySeconds_;
    std::chrono::steady_clock::time_point started_;
    bool isQuiet_ = false;
    std::string unread_;
    Source hearing_, ending_, restart_;
};

}  // namespace quode
