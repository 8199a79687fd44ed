// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The user's own choices, as the commands read and change them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "companion/UserDatabase.h"

namespace quode::app {

class Session;

/// The user database, to read from; nothing when there is none yet. Throws `UserDatabaseError`.
std::optional<UserDatabase> userDatabaseToRead(Session& session);

/// While such an object lives, `userDatabaseToRead` opens and checks the user database once for all who read it. For a
/// short time in which much is read, such as the start of a program with windows: the file stays open.
class OpenUserData {
  public:
    explicit OpenUserData(Session& session);
    ~OpenUserData();
    OpenUserData(const OpenUserData&) = delete;
    OpenUserData& operator=(const OpenUserData&) = delete;

    /// What is open, else what `open` opens.
    std::optional<UserDatabase> database(const std::function<std::optional<UserDatabase>()>& open);

  private:
    Session& session_;
    OpenUserData* const outer_;
    std::optional<UserDatabase> database_;
};

/// The user database, to be changed; it is made when there is none. What the user should know about it is reported. Throws
/// `UserDatabaseError`.
UserDatabase userDatabaseToChange(Session& session);

/// The message for a home city whose number is in neither database any more.
std::string lostHome(int id);

/// The user's home city; nothing when none was chosen. A database that cannot be read, and a city that no longer
/// exists, are reported.
std::optional<CityRecord> homeCity(Session& session);

/// The same with what is stored of it: a city that is not known any more, a guess.
std::optional<UserCity> storedHome(Session& session);

/// A place that the user added by coordinates, by its name or its number; nothing when there is none.
std::optional<CityRecord> ownPlace(Session& session, std::string_view request);

/// The city of the user's list that is meant by its position, its id or its name. Throws `Failure` when there is none,
/// or more than one.
UserCity cityOfList(const std::vector<UserCity>& cities, std::string_view request);

}  // namespace quode::app
