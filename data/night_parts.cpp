// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/night_parts.h"

#include <cmath>

namespace quode {

std::optional<NightParts> nightOf(const CityDay& day) {
    constexpr double hoursPerDay = 24.0;
    const PrayTimes& times = day.times;
    if (times.Aksam == missingTime || times.Gece2 == missingTime || times.Gece3 == missingTime) return std::nullopt;
    const double shift = hoursPerDay * std::floor(times.Ogle / hoursPerDay);  // of the engine's own hours
    return NightParts{times.Gece3 - shift, times.Gece2 - shift, 2.0 * times.Gece3 - nightBegin(day) - shift};
}

}  // namespace quode
