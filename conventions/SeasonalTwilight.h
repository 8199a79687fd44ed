// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Twilight in minutes that change with the season and the latitude.
// Source: K. Shaukat, Moonsighting Committee Worldwide.
#pragma once

#include "conventions/Convention.h"

namespace quode::conventions {

/// Minutes from Fajr to sunrise. Latitudes below 55 degrees either way.
double minutesBeforeSunrise(double julianDay, double latitude);

/// Minutes from sunset to Isha: general, red (ahmer) or white (abyad) twilight.
double minutesAfterSunset(double julianDay, double latitude, HighLatitudeRule twilight);

}  // namespace quode::conventions
