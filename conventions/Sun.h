// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The apparent place of the Sun, good to about a second of arc, as the conventions need it.
#pragma once

namespace quode::conventions {

/// The Sun at an instant, seen from the Earth's centre.
struct SunPlace {
    double declination = 0.0;     ///< degrees
    double rightAscension = 0.0;  ///< degrees, 0..360
    double equationOfTime = 0.0;  ///< hours by which the true Sun is ahead of the mean one, within -12..12
};

/// Terrestrial less universal time, seconds: measured values to 2025, later on a parabola.
/// Sources: NASA/GSFC, Espenak and Meeus (2006); IERS.
double deltaT(double julianDay);

/// The apparent place (nutation and aberration included) at an instant.
/// @param julianDay  universal time
/// Sources: VSOP87 series of the Earth; Meeus, Astronomical Algorithms, chapters 12, 22 and 25.
SunPlace sunAt(double julianDay);

/// The Julian day of 0 h of a Gregorian date.
double julianDayOf(int year, int month, int day);

}  // namespace quode::conventions
