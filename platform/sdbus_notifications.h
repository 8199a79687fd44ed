// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-event.h>

#include <memory>

#include "platform/NotificationService.h"

namespace quode {

/// The notification service of the session bus (org.freedesktop.Notifications); its signals wake the loop. Without a session
/// bus every `show` tries to connect again.
std::unique_ptr<NotificationService> sdBusNotifications(sd_event* loop);

}  // namespace quode
