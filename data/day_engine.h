// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Sets an engine to a day at a site, for single days and for many.
#pragma once

#include "data/city_day.h"

namespace quode {

// The magnetic field is computed at this height for every place.
inline constexpr double declinationHeight = 500.0;  // metres

/// Sets date, place and clock of an engine that may have been used before.
void setEngine(FastAstro& engine, const Site& site, const VAKDate& day);

/// Computes the prayer times with an engine after `setEngine`, with its clock and the qibla. The sky and the magnetic
/// declination of `result` stay as they are.
void computeTimes(FastAstro& engine, const Site& site, CityDay& result);

/// The sky with sunrise and sunset in local time: on a day with only one of them, the engine leaves it in universal time.
/// @param offset  hours east of Greenwich
WidgetSkyInfo withLocalSun(WidgetSkyInfo sky, double offset);

}  // namespace quode
