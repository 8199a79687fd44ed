// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "alarmd/RingDesk.h"
#include "platform/NotificationService.h"

namespace quode {

class GlobalFuncs;

/// What comes back when the user chooses a button of a ring.
inline constexpr const char* stopAction = "stop";
inline constexpr const char* snoozeAction = "snooze";
inline constexpr const char* muteAction = "mute";

/// What a ring tells, in the language and with the clock of the shared services: prayer, city, time at that city, and
/// how far the ring is from that time.
Notification notificationOf(const Ring& ring, const GlobalFuncs& services);

}  // namespace quode
