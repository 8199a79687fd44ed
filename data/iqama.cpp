// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/iqama.h"

namespace quode {

bool hasIqama(const CityDay& day, int code) {
    return code >= firstPrayer && code <= lastMainPrayer &&
           day.method.iqama.at(static_cast<std::size_t>(code - firstPrayer)).has_value();
}

std::optional<int> iqamaMinute(const CityDay& day, int code) {
    if (!hasIqama(day, code)) return std::nullopt;
    const Iqama& iqama = *day.method.iqama.at(static_cast<std::size_t>(code - firstPrayer));
    const double hours = timeOfPrayer(day, code);
    if (hours == missingTime) return iqama.isFixed ? std::optional(iqama.minutes) : std::nullopt;
    const int prayer = shownMinute(hours);
    if (!iqama.isFixed) return prayer + iqama.minutes;
    // A fixed time for all of the year may come before the prayer in one season: then it is not that of this day.
    return iqama.minutes < prayer ? std::nullopt : std::optional(iqama.minutes);
}

}  // namespace quode
