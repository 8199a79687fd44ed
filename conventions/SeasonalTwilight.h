// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Twilight in minutes that change with season and latitude.
// Source: K. Shaukat, Moonsighting Committee Worldwide, minutes by season and latitude.
#pragma once

#include "conventions/Convention.h"

namespace quode::conventions {

/// Minutes from Fajr to sunrise.
/// @param julianDay  of 0 h UT of the civil date
/// @param latitude   degrees, below 55 north or south
double minutesBeforeSunrise(double julianDay, double latitude);

/// Minutes from sunset to Isha.
/// @param julianDay  of 0 h UT of the civil date
/// @param latitude   degrees, below 55 north or south
/// @param twilight   `moonsightingAhmer`: red, `moonsightingAbyad`: white, else general twilight
double minutesAfterSunset(double julianDay, double latitude, HighLatitudeRule twilight);

}  // namespace quode::conventions
