// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "companion/UserSettings.h"
#include "companion/alarm_times.h"
#include "platform/NotificationService.h"

namespace quode {

/// What the user sees and hears when an alarm rings.
struct Ring {
    AlarmOccurrence alarm;
    std::string city;
    std::string sound;             ///< its name, see "companion/sounds.h"
    std::chrono::minutes late{0};  ///< how much later than meant it rings
    RingManner manner = {};
    bool isAdjusted = false;  ///< the prayer's time has minutes of the user's own
};

/// Where alarms ring.
class RingDesk {
  public:
    virtual ~RingDesk() = default;

    /// The run of the notification service that is there now, see `NotificationService`; empty without one.
    virtual std::string run() = 0;

    /// Asks the desktop to show a ring; see `NotificationService::show`.
    virtual void show(const Ring& ring, NotificationService::Answer answered) = 0;

    /// Begins to sound.
    virtual void sound(const Ring& ring) = 0;

    /// Ends the sound of an alarm, if it is that which sounds.
    virtual void silence(const AlarmOccurrence& alarm) = 0;

    /// Takes a notification away.
    virtual void close(const NotificationId& notification) = 0;

    /// Tells the user of a failure.
    virtual void warn(std::string_view message) = 0;
};

}  // namespace quode
