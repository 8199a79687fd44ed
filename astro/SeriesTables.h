// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode::tables {

/// A cos(B + C t), t in Julian millennia.
struct EarthTerm {
    double A, B, C;
};
#include "astro/tables/vsop87_earth.inc"

/// Multiples of D, M, M', F; longitude in 1e-6 degrees (sine), distance in metres (cosine).
struct LongitudeDistanceTerm {
    int D, M, Mp, F, sigmaL, sigmaR;
};
#include "astro/tables/moon_longitude_distance.inc"

/// Multiples of D, M, M', F; latitude in 1e-6 degrees (sine).
struct LatitudeTerm {
    int D, M, Mp, F, sigmaB;
};
#include "astro/tables/moon_latitude.inc"

/// Multiples of D, M, M', F, Omega; constant parts in 0.0001" and parts per century in 0.00001".
struct NutationTerm {
    int D, M, Mp, F, Omega, psi, psiT, eps, epsT;
};
#include "astro/tables/nutation_iau1980_first31.inc"

/// Multiples of M, M', F, Omega, the power of E, and the coefficient in days: arrays phase_new, phase_full,
/// phase_quarter, phase_quarter_W_cosine.
struct PhaseTerm {
    int M, Mp, F, Omega, ePower;
    double coefficient;
};
#include "astro/tables/moon_phase_terms.inc"

/// The argument degrees + degreesPerK * k, and the coefficient in days.
struct PlanetaryTerm {
    double degrees, degreesPerK, coefficient;
};
#include "astro/tables/moon_phase_planetary.inc"

/// Main field and yearly change of the epochs 2005 and 2010, nT; there is no change above degree 8.
struct FieldCoefficient {
    double main2005, change2005, main2010, change2010;
};
#include "astro/tables/geomagnetic_field.inc"

/// The margin in minutes at one whole degree of latitude.
struct TemkinRow {
    double minutes500m, minutes250m;
    int quoted500m, quoted250m;
};
#include "astro/tables/temkin_minutes.inc"

}  // namespace quode::tables
