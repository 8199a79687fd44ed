// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Heliocentric place of the Earth, ecliptic and equinox of date, from the abridged VSOP87 series. No state; nothing
/// throws. The cosines are taken in single precision. Good to 0.0012 degree in the Sun's right ascension from 1975 to
/// 2035 (docs/accuracy.md).
///
/// @code
///   const auto [longitude, latitude, distance] = quode::EarthCompute::place(2448908.5);  // radians, radians, AU
///   const double kilometres = distance * 149597870.7;
/// @endcode
///
/// Source: P. Bretagnon and G. Francou, VSOP87 series D (1988); the terms of J. Meeus, Astronomical Algorithms, 2nd
/// edition, appendix III, and their sum by equation (32.2).
/// Fixed names: all, except `Place` and `place`.
class EarthCompute {
  public:
    /// Sums of A cos(B + C t) over one table, in 1e-8 radians or astronomical units; t in Julian millennia from J2000.
    static double L0(double t);
    static double L1(double t);
    static double L2(double t);
    static double L3(double t);
    static double L4(double t);
    static double L5(double t);
    static double B0(double t);
    static double B1(double t);
    static double R0(double t);
    static double R1(double t);
    static double R2(double t);
    static double R3(double t);
    static double R4(double t);

    /// All three coordinates: longitude (not reduced) and latitude in radians, distance in astronomical units.
    struct Place {
        double L, B, R;
    };
    /// The same values as `EarthL`, `EarthB` and `EarthR`, computed faster.
    static Place place(double julianDay);

    /// Heliocentric longitude in radians, not reduced.
    static double EarthL(double julianDay);
    /// Heliocentric latitude in radians.
    static double EarthB(double julianDay);
    /// Distance from the Sun in astronomical units.
    static double EarthR(double julianDay);
};

}  // namespace quode
