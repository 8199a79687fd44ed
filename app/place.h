// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/json.h"
#include "data/CityDatabase.h"

namespace quode::app {

class Session;
struct Texts;

/// Why a place is shown.
enum class PlaceSource {
    argument,     ///< named on the command line
    environment,  ///< named in $QUODE_CITY
    home,         ///< the user's home city
    systemZone,   ///< the largest city of the system's time zone, also when it was stored as home without being asked
                  ///< for
    fallback,     ///< Mecca, for the system's time zone belongs to no city
};

/// The place that a command is about.
struct ChosenPlace {
    CityRecord city;  ///< of a point: its coordinates, with the zone of the nearest city; id 0
    PlaceSource source = PlaceSource::argument;
    std::optional<NearestCity> nearest;  ///< of a point: the city whose clock is used
};

/// Finds the place of --city, else of $QUODE_CITY, else the home city, else that of the system's time zone. Throws
/// `Failure`: notFound with suggestions for an unknown city, usage for coordinates outside the Earth.
ChosenPlace choosePlace(Session& session, const std::optional<std::string>& request);

/// The same for a command that chooses its method: a stored one that cannot be read is not reported.
ChosenPlace choosePlaceForMethod(Session& session, const std::optional<std::string>& request);

/// The same without --city and $QUODE_CITY: what a front shows that always shows the home city.
ChosenPlace chooseHomePlace(Session& session);

/// "İstanbul, İstanbul, Türkiye"; the region only where it is not the country.
std::string regionAndCountry(Session& session, const CityRecord& city);
std::string fullName(Session& session, const CityRecord& city);

/// The edition of the city database: "places 2026-09, zones 2026f".
/// @throw CityDatabaseError  when the database cannot be read
std::string editionText(Session& session);

/// "41.0138° N  28.9497° E".
std::string coordinatesText(double latitude, double longitude, std::string_view decimalMark);

Json placeJson(const ChosenPlace& place);
Json cityJson(const CityRecord& city);

}  // namespace quode::app
