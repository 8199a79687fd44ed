// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Places that the user added by coordinates, because the city database does not contain them. The user database stores
// them with negative ids, so that one id identifies a place of either kind.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "data/City.h"
#include "data/CityDatabase.h"

struct sqlite3;

namespace quode {

class GlobalFuncs;

/// True for the id of a place of the user. Fixed rule: the ids are stored.
constexpr bool isUserPlace(int id) {
    return id < 0;
}

/// The name of the user database (fixed: the file exists), and its path in the data folder.
inline constexpr const char* userDatabaseName = "user.sqlite";
std::filesystem::path userDatabaseFile(const std::filesystem::path& dataFolder);

/// A place of the user, with region and country of the nearest place in the city database and its zone's clock from there.
/// @return nothing when the place does not exist, or the user database cannot be read
/// @throw CityDatabaseError  when the city database is damaged
std::optional<CityRecord> userPlace(const std::filesystem::path& userDatabase, const CityDatabase& cities, int id);

/// The same from an open user database.
std::optional<CityRecord> userPlace(sqlite3* userDatabase, const CityDatabase& cities, int id);

/// Stores the facts of a record in a city, as texts: names, coordinates, margin, and the zone with the summer-time rule
/// for a day.
void fillCity(City& city, const CityRecord& record, std::chrono::year_month_day date);

/// Stores a zone's offset and summer-time rule in a city, as texts.
void fillClock(City& city, const ZoneRule& rule);

/// Fills a city with a place of the user, with today's clock. The city stays as it was when that is not possible.
void fillWithUserPlace(City& city, int id, const GlobalFuncs& services);

}  // namespace quode
