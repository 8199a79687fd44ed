// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Geocentric place of the Moon from the truncated ELP-2000/82 theory. No state; trigonometry in single precision.
/// Source: M. Chapront-Touze and J. Chapront (1983), terms of J. Meeus, Astronomical Algorithms, chapters 22 and 47.
class MoonCompute {
  public:
    /// An angle reduced into 0..360 degrees.
    static double PutIn360(double angle);

    /// Trigonometry in degrees.
    static double Cos_Deg(double angle);
    static double Sin_Deg(double angle);
    static double Tan_Deg(double angle);
    /// Angle of the point (x, y), degrees in (-180, 180].
    static double ArcTan2_Deg(double y, double x);
    static double ArcSin_Deg(double x);

    /// Nutation in longitude and true obliquity, degrees, from the 31 largest terms of the IAU 1980 theory.
    static void Calc_Epsilon_Phi(double julianDay, double& deltaPsi, double& epsilon);

    /// Ecliptic to equatorial coordinates, all degrees. The nutation is added to `lambda`.
    static void Calc_Geocentric(double julianDay, double& lambda, double beta, double& alpha, double& delta);

    /// Declination in degrees, right ascension in hours (0 <= x < 24) and distance in km, apparent, equinox of date.
    /// julianDay: dynamical time; the engine gives universal time, which leaves the Moon some 40 arc seconds behind.
    static void Moon_Coordinate(double julianDay, double& declination, double& rightAscension, double& distance);
};

}  // namespace quode
