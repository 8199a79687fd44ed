// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Keeps what the user chose for the times of a city, see "data/SiteChoice.h", in tables of its own that are created
// when the first choice is made. Failures are `UserDatabaseError`; nothing has been changed then.
#pragma once

#include <filesystem>
#include <string>

#include "data/CityDatabase.h"
#include "data/SiteChoice.h"

namespace quode {

class UserConnection;

/// Why what is stored for a city cannot be read, and what to do; empty when it can. Its times would be those of another
/// method.
std::string choiceProblem(const CityRecord& city);

/// Throws that as `UserDatabaseError`.
void requireReadableChoice(const CityRecord& city);

/// Stores the method of a city. height  metres, as the city database has it
void storeMethod(UserConnection& connection, int cityId, const conventions::Method& method, double height);

/// Stores the timetable of a city in place of a former one.
void storeTimetable(UserConnection& connection, int cityId, const Timetable& table);

/// Stores when the congregation of a city begins, in place of former rules.
void storeIqama(UserConnection& connection, int cityId, const IqamaRules& rules);

/// Stores all that was chosen for a city, unless a part of it could not be read.
void storeSiteChoice(UserConnection& connection, int cityId, const SiteChoice& choice);

void forgetTimetable(UserConnection& connection, int cityId);

/// Copies the choices of cities from a damaged database, as far as they can be read and make sense. They hold again for
/// a city that the user adds again. Those of the user's own places are left, for their numbers will mean other places.
void salvageSiteChoices(UserConnection& connection, const std::filesystem::path& damaged);

/// Forgets method, timetable and congregation times of a city.
void forgetSiteChoice(UserConnection& connection, int cityId);

}  // namespace quode
