// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the row of an alarm cannot hold: days of the week, a second ring, silence until a moment. Kept in a table of its
// own, which is created with the first of them; the widget does not read it. Failures are `UserDatabaseError`; nothing
// has been changed then.
#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "companion/alarm_times.h"

namespace quode {

/// How long a ring that is snoozed is silent.
inline constexpr std::chrono::minutes snoozeTime{5};

class UserConnection;
class UserDatabase;
struct UserAlarm;

/// Fills in the habits of alarms; those without any stay as they are.
void readHabits(const UserConnection& connection, std::vector<UserAlarm>& alarms);

/// Stores the habits of an alarm: days, reminder and silence.
void storeHabits(UserConnection& connection, const UserAlarm& alarm);

/// Until when all alarms are silent; nothing where they are not, or never were.
std::optional<std::chrono::sys_seconds> mutedUntil(const UserDatabase& database);

/// Mutes all alarms up to a moment, and with it; a moment that has passed ends that.
void muteUntil(UserDatabase& database, std::chrono::sys_seconds moment);

}  // namespace quode
