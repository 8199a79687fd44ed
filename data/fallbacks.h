// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "astro/prayer.h"

namespace quode {

/// The fallbacks of the engine that a time comes from.
struct Fallbacks {
    bool latitude = false;    ///< computed for a latitude nearer to the equator
    bool earlierDay = false;  ///< taken from an earlier day
};

/// The fallbacks of a time.
/// @param code  200 to 208
/// @throw std::out_of_range  for another code
constexpr Fallbacks fallbacksOf(const PrayTimes& times, int code) {
    const PrayerFacts& facts = factsOf(code);
    // Noon does not depend on the latitude.
    return {times.isLatitudeChanged && facts.prayer != Prayer::dhuhr,
            facts.isEarlierDay != nullptr && times.*facts.isEarlierDay};
}

}  // namespace quode
