// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The apparent place of the Sun for the conventions, good to about a second of arc.
#pragma once

namespace quode::conventions {

/// The Sun at an instant, seen from the Earth's centre.
struct SunPlace {
    double declination = 0.0;     ///< degrees
    double rightAscension = 0.0;  ///< degrees, 0..360
    double equationOfTime = 0.0;  ///< apparent less mean time, hours, within -12..12
};

/// Terrestrial less universal time: measured values up to 2025, then a transition to a parabola within a century.
/// @param julianDay  universal time
/// @return seconds
/// Sources: NASA/GSFC, Espenak and Meeus (2006); IERS.
double deltaT(double julianDay);

/// The apparent place (nutation and aberration included) at an instant.
/// @param julianDay  universal time
/// Sources: VSOP87 series of the Earth; J. Meeus, Astronomical Algorithms, 2nd edition, chapter 12 (12.4), chapter 22
/// (22.2 and the largest terms of the nutation), chapter 25 (aberration).
SunPlace sunAt(double julianDay);

/// The Julian day of 0 h of a date in the proleptic Gregorian calendar.
double julianDayOf(int year, int month, int day);

}  // namespace quode::conventions
