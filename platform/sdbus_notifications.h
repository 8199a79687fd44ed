// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-event.h>

#include <memory>

#include "platform/NotificationService.h"

namespace quode {

/// The notification service of the session bus (org.freedesktop.Notifications), with the signals of which the loop
/// wakes. Without a session bus every `show` looks for one again.
std::unique_ptr<NotificationService> sdBusNotifications(sd_event* loop);

}  // namespace quode
