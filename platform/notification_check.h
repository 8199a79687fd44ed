// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

/// What is known of the desktop's notification service.
struct NotificationCheck {
    enum class State {
        noBus,        ///< there is no session bus
        none,         ///< nobody offers notifications
        startable,    ///< a service starts as soon as something is to be shown
        running,      ///< a service runs
        unresponsive  ///< a service runs, but does not answer
    };
    State state = State::noBus;
    std::string name;  ///< of a running service, with its version: "dunst 1.9.0"
    bool hasActions = false;
};

/// Looks for the notification service (org.freedesktop.Notifications) on the session bus. Neither it nor a bus is
/// started.
NotificationCheck checkNotifications();

}  // namespace quode
