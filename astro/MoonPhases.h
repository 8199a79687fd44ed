// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace quode {

/// One of the four phases of the Moon and its moment.
struct MoonPhase {
    int phase = 0;           ///< 0 new, 1 first quarter, 2 full, 3 last quarter
    double julianDay = 0.0;  ///< universal time
};

/// The age of the Moon at a moment, days.
struct MoonAge {
    double sinceNewMoon = 0.0;
    double toNewMoon = 0.0;
};

/// Terrestrial (dynamical) less universal time in seconds, for a year with its fraction.
/// For the years to come it is a forecast: in 2026 some 6 seconds too large, later uncertain by more.
/// Source: F. Espenak and J. Meeus, Five Millennium Canon of Solar Eclipses (2006), polynomials for -500..2150 and the
/// parabola beyond.
double deltaT(double year);

/// All phases from one moment up to, not including, another, in the order of time. Julian days in universal time.
/// Good to half a minute in the years 1900 to 2050; later as good as the forecast of `deltaT`.
/// Source: J. Meeus, Astronomical Algorithms, 2nd edition, chapter 49, less `deltaT`.
std::vector<MoonPhase> moonPhasesBetween(double firstJulianDay, double endJulianDay);

/// All phases of a calendar year in universal time, in the order of time.
/// @param year  1..9999
std::vector<MoonPhase> moonPhasesOfYear(int year);

/// Days from the last and to the next new moon. At the very moment of a new moon the age is 0.
MoonAge moonAge(double julianDay);

}  // namespace quode
