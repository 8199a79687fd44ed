// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "conventions/SolarDay.h"

namespace quode::conventions {

/// Asks when twilight begins (Fajr) or ends (Isha, or a Maghrib by an angle).
struct TwilightQuestion {
    using Side = SolarDay::Side;

    Side side = Side::morning;
    double angle = 18.0;           ///< degrees below the horizon
    double horizon = 50.0 / 60.0;  ///< degrees below the horizon at which the Sun rises and sets
    HighLatitudeRule rule = HighLatitudeRule::none;
    double sunriseMinutes = 0.0, sunsetMinutes = 0.0;  ///< that the convention adds to them
    double fajrAngle = 18.0, ishaAngle = 17.0;         ///< of the convention
};

struct TwilightAnswer {
    std::optional<double> hours;  ///< universal hours of the day; nothing where no rule gives a time
    bool isByRule = false;        ///< the time comes from the rule for high latitudes, not from the angle
};

TwilightAnswer twilight(const SolarDay& day, const TwilightQuestion& question);

}  // namespace quode::conventions
