// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "conventions/Twilight.h"

namespace quode::conventions {

/// Twilight by a part of the night that the last spring day with full twilight fixes: on every date on which the Sun
/// does not sink 18 degrees, with straight ramps to the plain angles before and after. Nothing where the plain angles
/// hold, or where the dates that the rule needs have no sunrise and sunset.
std::optional<TwilightAnswer> diyanetNorth(const SolarDay& day, const TwilightQuestion& question);

}  // namespace quode::conventions
