// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Geocentric place of the Moon from the truncated ELP-2000/82 theory. No state; trigonometry in single precision.
/// Nothing throws.
///
/// @code
///   double declination = 0.0, rightAscension = 0.0, distance = 0.0;  // degrees, hours, km
///   quode::MoonCompute::Moon_Coordinate(2448724.5, declination, rightAscension, distance);
/// @endcode
///
/// Source: M. Chapront-Touze and J. Chapront (1983), with the terms of J. Meeus, Astronomical Algorithms, 2nd edition,
/// chapter 47 (tables 47.A and 47.B) and chapter 22 (table 22.A).
/// Fixed names: all.
class MoonCompute {
  public:
    /// An angle reduced into 0..360 degrees.
    static double PutIn360(double angle);

    /// Cosine, sine and tangent of an angle in degrees.
    static double Cos_Deg(double angle);
    static double Sin_Deg(double angle);
    static double Tan_Deg(double angle);

    /// Angle of the point (x, y), degrees in (-180, 180]. Note the order of the parameters.
    static double ArcTan2_Deg(double y, double x);

    /// Arc sine, degrees; a NaN outside -1..1.
    static double ArcSin_Deg(double x);

    /// Nutation and obliquity from the 31 largest terms of the IAU 1980 theory.
    /// @param julianDay  dynamical time
    /// @param deltaPsi   receives the nutation in longitude, degrees
    /// @param epsilon    receives the true obliquity of the ecliptic, degrees
    static void Calc_Epsilon_Phi(double julianDay, double& deltaPsi, double& epsilon);

    /// Turns ecliptic into equatorial coordinates, all degrees.
    /// @param lambda  longitude; receives it with the nutation, 0..360
    /// @param beta    latitude
    /// @param alpha   receives the right ascension, -180..180
    /// @param delta   receives the declination
    /// Source: Meeus, chapter 13, equations (13.3) and (13.4).
    static void Calc_Geocentric(double julianDay, double& lambda, double beta, double& alpha, double& delta);

    /// Apparent place of the Moon, equinox of date. By the source, the series are good to 10 arc seconds in longitude and
    /// 4 in latitude. The engine passes universal time, which leaves the Moon some 40 arc seconds behind: 0.02 degree
    /// and 11 km in the first half of this century (docs/accuracy.md).
    /// @param julianDay       dynamical time
    /// @param declination     receives degrees
    /// @param rightAscension  receives hours, 0 <= x < 24
    /// @param distance        receives km, from centre to centre
    static void Moon_Coordinate(double julianDay, double& declination, double& rightAscension, double& distance);
};

}  // namespace quode
