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
    if (iqama.isFixed) return iqama.minutes;
    const double hours = timeOfPrayer(day, code);
    if (hours == missingTime) return std::nullopt;
    return shownMinute(hours) + iqama.minutes;
}

}  // namespace quode
