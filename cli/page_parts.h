// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What several commands print around their tables.
#pragma once

#include <vector>

#include "app/place.h"
#include "app/ringer.h"
#include "data/city_day.h"
#include "data/zone_check.h"
#include "terminal/Console.h"

namespace quode::cli {

/// Prints the place: name, region and country of a city, or the coordinates of a point and the city of its clock.
/// @param withCoordinates  adds the coordinates of a city, on the right
void printPlace(terminal::Console& console, const app::ChosenPlace& place, bool withCoordinates = false);

/// Prints how the city was chosen when nobody named it.
void printHowChosen(terminal::Console& console, const app::ChosenPlace& place);

/// The same for the home city, which commands about alarms show.
void printHowHomeWasChosen(terminal::Console& console);

/// Reports a place that is not even in the time zone on the standard error, beside output that has no room for a note,
/// such as a file.
void reportFallbackPlace(terminal::Console& console, const app::ChosenPlace& place);

/// Prints the method of the times; nothing for the default one.
void printMethod(terminal::Console& console, const Site& site);

/// Prints where stored clocks differ from the system's, as warnings.
void printWarnings(terminal::Console& console, const std::vector<ZoneDisagreement>& problems);

/// Prints who rings, or warns that nobody does.
void printRinger(terminal::Console& console, const app::RingerState& state);

}  // namespace quode::cli
