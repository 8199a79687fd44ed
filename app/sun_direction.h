// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "data/city_day.h"

namespace quode::app {

/// The first time of a day at which the Sun, above the horizon, stands in a direction; local hours, nothing when it
/// never does. Good to some seconds.
/// @param bearing  degrees clockwise from true north
std::optional<double> timeOfSunInDirection(const Site& site, const CityDay& day, double bearing);

}  // namespace quode::app
