// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "conventions/SolarDay.h"

namespace quode::conventions {

/// The parameters of a twilight: its begin (Fajr) or its end (Isha, or a Maghrib by an angle).
struct TwilightQuestion {
    using Side = SolarDay::Side;

    Side side = Side::morning;
    double angle = 18.0;           ///< degrees below the horizon
    double horizon = 50.0 / 60.0;  ///< degrees below the horizon at which the Sun rises and sets
    HighLatitudeRule rule = HighLatitudeRule::none;
    double sunriseMinutes = 0.0, sunsetMinutes = 0.0;  ///< added by the convention
    double fajrAngle = 18.0, ishaAngle = 17.0;         ///< of the convention, degrees
};

/// The time of a twilight.
struct TwilightAnswer {
    std::optional<double> hours;  ///< universal hours of the day; nothing where no rule gives a time
    bool isByRule = false;        ///< the time comes from the rule for high latitudes, not from the angle
};

/// The time of a twilight: by its angle, or by the rule for high latitudes where the angle is not reached or the rule's
/// limit is nearer to the day.
TwilightAnswer twilight(const SolarDay& day, const TwilightQuestion& question);

}  // namespace quode::conventions
