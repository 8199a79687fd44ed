// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The parts of the night that begins on a day: by the engine's definition from sunset to dawn, as both are shown; by
// methods whose Maghrib is later than sunset, from sunset.
#pragma once

#include <array>
#include <optional>

#include "data/city_day.h"

namespace quode {

/// The limits of the parts, in hours.
struct NightParts {
    double firstThird = 0.0;  ///< the end of the first third
    double midnight = 0.0;    ///< half of the night
    double lastThird = 0.0;   ///< the beginning of the last third
};

/// The parts of the night after a day, in hours after 0 h of the day like `timeOfPrayer`; after midnight from 24 on.
/// @return nothing when dawn or sunset is missing
std::optional<NightParts> nightOf(const CityDay& day);

/// A part with its key in JSON and CSV.
struct NightPartName {
    const char* key;
    double NightParts::*hours;
};
inline constexpr std::array<NightPartName, 3> nightPartNames{{{"first_third", &NightParts::firstThird},
                                                              {"midnight", &NightParts::midnight},
                                                              {"last_third", &NightParts::lastThird}}};

}  // namespace quode
