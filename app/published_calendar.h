// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A calendar file of the home city's prayers that stays current, for calendar programs of this system to subscribe to.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

#include "companion/UserDatabase.h"

namespace quode::app {

class Session;

struct PublishedCalendar {
    std::filesystem::path file;                 ///< absolute
    std::optional<std::chrono::minutes> alarm;  ///< a reminder so long before each prayer
};

/// What the user publishes; nothing when nothing is.
std::optional<PublishedCalendar> publishedCalendar(const UserDatabase& database);

/// Publishes from now on, in place of a former file, which stays as it is; nothing: no longer.
void setPublishedCalendar(UserDatabase& database, const std::optional<PublishedCalendar>& calendar);

/// Writes the file for the first time and publishes it. Throws what `renewPublishedCalendar` throws, and `Failure` (usage)
/// for a file that cannot be.
void publishCalendar(Session& session, const PublishedCalendar& calendar);

/// Ends that; the file stays.
/// @return what was published
std::optional<PublishedCalendar> unpublishCalendar(Session& session);

/// Writes the file, from yesterday to three months ahead, unless it is current. Throws `Failure`: usage when the file
/// is something else than such a calendar, which is left alone; userData when it cannot be written.
void renewPublishedCalendar(Session& session, const PublishedCalendar& calendar);

}  // namespace quode::app
