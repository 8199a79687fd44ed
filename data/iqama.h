// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "data/city_day.h"

namespace quode {

/// When the congregation begins at a prayer, in minutes after 0 h of the day; 1440 and more belong to the next day.
/// Nothing when it is not known, or when the prayer has no time that day.
/// @param code  200 to 205; the other times have no congregation
std::optional<int> iqamaMinute(const CityDay& day, int code);

/// Whether it is known for a prayer of the day.
bool hasIqama(const CityDay& day, int code);

}  // namespace quode
