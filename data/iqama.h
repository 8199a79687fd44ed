// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "data/city_day.h"

namespace quode {

/// The longest time from a prayer to its congregation, in minutes.
inline constexpr int longestWait = 180;

/// The begin of the congregation at a prayer.
/// @param code  200 to 205; the other times have no congregation
/// @return minutes after 0 h of the day, from 1440 on in the next day; nothing when it is unknown, when the prayer has no time
///         that day, or when a fixed clock time lies before the prayer
std::optional<int> iqamaMinute(const CityDay& day, int code);

/// True when it is known for a prayer of the day.
bool hasIqama(const CityDay& day, int code);

}  // namespace quode
