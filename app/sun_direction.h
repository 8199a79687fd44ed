// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "data/city_day.h"

namespace quode::app {

/// The first time of a day at which the Sun, above the horizon, stands in a direction; local hours, -1.0 when it never
/// does. Good to some seconds.
/// @param bearing  degrees clockwise from true north
double timeOfSunInDirection(const Site& site, const CityDay& day, double bearing);

}  // namespace quode::app
