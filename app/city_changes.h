// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Changes of the user's cities and of what is chosen for their times. The events of the alarms follow each of them. All throw
// `UserDatabaseError`, and nothing is changed then.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "companion/UserDatabase.h"
#include "conventions/Method.h"

namespace quode::app {

class Session;

/// Does something with the user's cities, altogether or not at all, and brings the alarms to the home that they then
/// have.
void changeCities(Session& session, const std::function<void(UserDatabase&)>& change);

/// A city that was removed, as it was.
struct RemovedCity {
    UserCity city;
    std::size_t position = 0;  ///< in the list
};

/// Removes a city.
/// @return what brings it back
RemovedCity removeCity(Session& session, int id);

/// Brings a removed city back, with what was chosen for its times, to its place in the list; as home where it was that.
void bringBack(Session& session, const RemovedCity& removed);

/// Chooses the method of a city that has a number. Throws `Failure` (usage) for a method that is impossible.
void chooseMethod(Session& session, const CityRecord& city, const conventions::Method& method);

inline constexpr int longestIqama = 180;  ///< minutes from a prayer time to the congregation

/// Chooses when the congregations of prayers begin in a city that has a number.
/// @param codes  200 to 205; sunrise has no congregation and is passed over
/// @param iqama  up to `longestIqama` minutes after the time, or a minute of the day; without it, what was chosen is forgotten
/// @return all that is stored for the city then
IqamaRules chooseIqama(Session& session, const CityRecord& city, const std::vector<int>& codes,
                       const std::optional<Iqama>& iqama);

}  // namespace quode::app
