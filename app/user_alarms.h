// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The user's alarms and their next rings.
#pragma once

#include <string>
#include <vector>

#include "app/json.h"
#include "companion/UserDatabase.h"
#include "companion/UserSettings.h"

namespace quode::app {

class Session;

/// What is known of the user's alarms.
struct UserAlarms {
    std::optional<CityRecord> city;        ///< for which they ring; without one none does
    std::optional<int> lostHome;           ///< the number of a home city that is no longer in the city database
    std::vector<UserAlarm> alarms;         ///< the six, in the order of the day
    std::vector<AlarmOccurrence> prayers;  ///< the next time of each, whatever its alarm does
    std::vector<AlarmOccurrence> coming;   ///< the next ring of each within a day, on or off, in the order of time
    std::vector<AlarmOccurrence> snoozed;  ///< rings to be repeated; `due` is when
    UserSettings settings;

    const UserAlarm& alarm(int code) const { return alarms.at(static_cast<std::size_t>(code - firstPrayer)); }

    bool anyIsOn() const;
    bool isSnoozed(const AlarmOccurrence& ring) const;

    /// The rings to come of the alarms that are on, and the repeated ones, in the order of time.
    std::vector<AlarmOccurrence> rings() const;
};

/// Reads them; without a user database all are off. Throws `UserDatabaseError`.
UserAlarms readAlarms(Session& session);
UserAlarms readAlarms(Session& session, UserDatabase& database);

/// The sound of an alarm, that of the settings when it has none.
std::string soundOf(const UserAlarms& all, const UserAlarm& alarm);

/// The same to be shown: the path of a file can contain anything.
std::string soundText(const UserAlarms& all, const UserAlarm& alarm);

/// "15 min before".
std::string offsetText(int minutes);

/// The wall clock at the place of an instant, as the locale tells it.
std::string clockAt(Session& session, const CityRecord& city, std::chrono::sys_seconds instant);

/// "in 2 h 13 min", after "tomorrow" where that is the day at the place.
std::string timeUntil(Session& session, const CityRecord& city, std::chrono::sys_seconds instant);

Json ringJson(Session& session, const UserAlarms& all, const AlarmOccurrence& ring);

}  // namespace quode::app
