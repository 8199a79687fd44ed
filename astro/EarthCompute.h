// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Heliocentric place of the Earth, ecliptic and equinox of date, from the abridged VSOP87 series. No state.
/// The cosines are taken in single precision.
/// Source: P. Bretagnon and G. Francou, VSOP87 series D (1988); terms of J. Meeus, Astronomical Algorithms, appendix.
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

    /// All three together: longitude and latitude in radians, distance in astronomical units.
    struct Place {
        double L, B, R;
    };
    static Place place(double julianDay);

    /// Heliocentric longitude in radians, not reduced.
    static double EarthL(double julianDay);
    /// Heliocentric latitude in radians.
    static double EarthB(double julianDay);
    /// Distance from the Sun in astronomical units.
    static double EarthR(double julianDay);
};

}  // namespace quode
