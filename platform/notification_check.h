// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

/// The state of the desktop's notification service.
struct NotificationCheck {
    enum class State {
        noBus,        ///< there is no session bus
        none,         ///< there is no notification service
        startable,    ///< a service starts with the first notification
        running,      ///< a service runs
        unresponsive  ///< a service runs, but does not answer
    };
    State state = State::noBus;
    std::string name;         ///< a running service with its version: "dunst 1.9.0"
    bool hasActions = false;  ///< the service supports buttons
};

/// Checks the notification service (org.freedesktop.Notifications) on the session bus. Starts neither a service nor a bus.
NotificationCheck checkNotifications();

}  // namespace quode
