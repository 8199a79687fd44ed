// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "companion/alarm_times.h"

namespace quode {

/// All that is told and heard when an alarm rings.
struct Ring {
    AlarmOccurrence alarm;
    std::string city;
    std::string sound;             ///< its name, see "companion/sounds.h"
    std::chrono::minutes late{0};  ///< how much later than meant it rings
};

/// Where alarms ring.
class RingDesk {
  public:
    virtual ~RingDesk() = default;

    /// Tells the user. Returned: the number of the notification; 0 when there is no service for it.
    virtual std::uint32_t show(const Ring& ring) = 0;

    /// Begins to sound, for the notification of a number.
    virtual void sound(const Ring& ring, std::uint32_t number) = 0;

    /// Takes a notification away and ends its sound.
    virtual void silence(std::uint32_t number) = 0;
};

}  // namespace quode
