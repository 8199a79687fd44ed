// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Changes of the user's cities and of the method of their times. The events of the alarms follow each of them. All throw
// `UserDatabaseError`, and nothing is changed then.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

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

/// Brings a removed city back, with its method and timetable, to its place in the list; as home where it was that.
void bringBack(Session& session, const RemovedCity& removed);

/// Chooses the method of a city that has a number. Throws `Failure` (usage) for a method that is impossible.
void chooseMethod(Session& session, const CityRecord& city, const conventions::Method& method);

}  // namespace quode::app
