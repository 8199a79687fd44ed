// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Places that the user added by coordinates, for the city database does not know them. They are kept in the user
// database and have negative numbers, so that one number names a place of either kind everywhere.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "data/City.h"
#include "data/CityDatabase.h"

struct sqlite3;

namespace quode {

class GlobalFuncs;

/// Whether a number is that of a place of the user's own.
constexpr bool isUserPlace(int id) {
    return id < 0;
}

/// The user database within the folder of the user's files.
std::filesystem::path userDatabaseFile(const std::filesystem::path& dataFolder);

/// A place of the user's own, with region and country of the place nearest to it and the clock of its zone as the city
/// database has it. Throws `CityDatabaseError` when that is damaged.
/// Returned: nothing when there is no such place, or the user database cannot be read.
std::optional<CityRecord> userPlace(const std::filesystem::path& userDatabase, const CityDatabase& cities, int id);

/// The same, from a user database that is open already.
std::optional<CityRecord> userPlace(sqlite3* userDatabase, const CityDatabase& cities, int id);

/// A place of either kind by its number.
std::optional<CityRecord> placeById(const std::filesystem::path& userDatabase, const CityDatabase& cities, int id);

/// Stores the facts of a record in a city, as texts: names, coordinates, margin, and the zone with the summer-time rule
/// that is true on a day.
void fillCity(City& city, const CityRecord& record, std::chrono::year_month_day date);

/// Stores a zone's offset and summer-time rule in a city, as texts.
void fillClock(City& city, const ZoneRule& rule);

/// Fills a city with a place of the user's own, with the clock of the present day. The city stays as it was when that
/// is not possible.
void fillWithUserPlace(City& city, int id, const GlobalFuncs& services);

}  // namespace quode
