// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "companion/UserDatabase.h"
#include "companion/UserSettings.h"
#include "platform/EventStore.h"

namespace quode {

/// Keeps the event of each alarm at its next ring.
class EventRenewal {
  public:
    /// report   receives why the calendar could not be read or written
    EventRenewal(EventStore& calendar, std::function<void(const std::string& message)> report)
        : calendar_(&calendar), report_(std::move(report)) {}

    /// @return when to come again, where an event was left to ring by another program first
    std::optional<std::chrono::sys_seconds> renew(UserDatabase& database, Ringer ringer, std::chrono::sys_seconds now);

    /// When the event of an alarm stands; nothing without one.
    std::optional<std::chrono::sys_seconds> startOf(const UserAlarm& alarm) const;

  private:
    bool mayStillRing(const UserAlarm& alarm, std::chrono::sys_seconds now) const;

    EventStore* calendar_;
    std::function<void(const std::string&)> report_;
};

}  // namespace quode
