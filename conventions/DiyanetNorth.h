// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "conventions/Twilight.h"

namespace quode::conventions {

/// Twilight as a part of the night, which the last spring day with full twilight (Sun 18 degrees below the horizon)
/// determines. It applies to every date without full twilight, with linear ramps to the plain angles before and after.
/// Source: found from the authority's published rows.
/// @return nothing where the plain angles apply, or where the dates that the rule needs have no sunrise and sunset
std::optional<TwilightAnswer> diyanetNorth(const SolarDay& day, const TwilightQuestion& question);

}  // namespace quode::conventions
