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

/// Terrestrial (dynamical) less universal time. For future years it is a forecast: in 2026 some 6 seconds too large,
/// later uncertain by more.
/// @param year  decimal
/// @return seconds
/// Source: F. Espenak and J. Meeus, Five Millennium Canon of Solar Eclipses (2006), polynomials for -500..2150 and the
/// parabola beyond.
double deltaT(double year);

/// All phases from one moment up to, not including, another, in chronological order.
/// Good to half a minute in the years 1900 to 2050; later as good as the forecast of `deltaT`.
///
/// @code
///   for (const quode::MoonPhase& next : quode::moonPhasesOfYear(2026)) {
///       if (next.phase == 0) std::printf("new moon at Julian day %.4f\n", next.julianDay);
///   }
/// @endcode
///
/// @param firstJulianDay,endJulianDay  universal time
/// Source: J. Meeus, Astronomical Algorithms, 2nd edition, chapter 49, equation (49.1), less `deltaT`.
std::vector<MoonPhase> moonPhasesBetween(double firstJulianDay, double endJulianDay);

/// All phases of a calendar year in universal time, in chronological order.
/// @param year  1..9999
std::vector<MoonPhase> moonPhasesOfYear(int year);

/// Days from the last and to the next new moon. At the moment of a new moon the age is 0.
/// @param julianDay  universal time
MoonAge moonAge(double julianDay);

}  // namespace quode
