// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// What the periodic terms of a phase of the Moon depend on: Sun's anomaly, Moon's anomaly, argument of latitude and
/// node, degrees, and the factor that the eccentricity of the Earth's orbit gives to the terms with the Sun's anomaly.
struct PhaseArguments {
    double M, Mp, F, omega, E;
};

/// From the mean to the true phase, days; 0 new, 1 first quarter, 2 full, 3 last quarter.
/// Source: J. Meeus, Astronomical Algorithms, chapter 49.
double periodicPhaseCorrection(int phase, const PhaseArguments& arguments);

/// The planets' part of the correction, days. k counts lunations from January 2000, with the quarter of the phase.
double planetaryPhaseCorrection(double k);

}  // namespace quode
