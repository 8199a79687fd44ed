// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The one way in which an engine is set to a day at a site, for single days and for many.
#pragma once

#include "data/city_day.h"

namespace quode {

// The field of the Earth is computed at this height, whatever the place's own.
inline constexpr double declinationHeight = 500.0;  // metres

/// Sets date, place and clock of an engine that may have been used before.
void setEngine(FastAstro& engine, const Site& site, const VAKDate& day);

/// The prayer times of an engine that has been set, with its clock and the qibla. The sky and the magnetic declination
/// stay as they are.
void computeTimes(FastAstro& engine, const Site& site, CityDay& result);

/// On a day with only one of sunrise and sunset, the engine leaves that one in universal time.
WidgetSkyInfo withLocalSun(WidgetSkyInfo sky, double offset);

}  // namespace quode
