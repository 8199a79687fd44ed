// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/iqama.h"

#include "common/civil_date.h"

namespace quode {

bool hasIqama(const CityDay& day, int code) {
    return code >= firstPrayer && code <= lastMainPrayer &&
           day.method.iqama.at(static_cast<std::size_t>(code - firstPrayer)).has_value();
}

std::optional<int> iqamaMinute(const CityDay& day, int code) {
    if (!hasIqama(day, code)) return std::nullopt;
    const Iqama& iqama = *day.method.iqama.at(static_cast<std::size_t>(code - firstPrayer));
    const auto hours = timeOfPrayer(day, code);
    if (!hours) return iqama.isFixed ? std::optional(iqama.minutes) : std::nullopt;
    const int prayer = shownMinute(*hours);
    if (!iqama.isFixed) return prayer + iqama.minutes;
    if (iqama.minutes >= prayer) return iqama.minutes;
    // After midnight where the prayer is late. Else it comes before the prayer in this season, and does not hold.
    const int nextMorning = iqama.minutes + minutesPerDay;
    return nextMorning - prayer >= 0 && nextMorning - prayer <= longestWait ? std::optional(nextMorning) : std::nullopt;
}

}  // namespace quode
