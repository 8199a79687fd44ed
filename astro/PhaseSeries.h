// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// The arguments of the periodic terms of a phase of the Moon: Sun's anomaly, Moon's anomaly, argument of latitude and
/// node, degrees, and the factor E that the eccentricity of the Earth's orbit gives to terms with the Sun's anomaly.
struct PhaseArguments {
    double M, Mp, F, omega, E;
};

/// True less mean phase, without the planets.
/// @param phase  0 new, 1 first quarter, 2 full, 3 last quarter
/// @return days
/// Source: J. Meeus, Astronomical Algorithms, chapter 49.
double periodicPhaseCorrection(int phase, const PhaseArguments& arguments);

/// The planets' part of the correction.
/// @param k  lunations since January 2000, with the quarter of the phase
/// @return days
/// Source: J. Meeus, Astronomical Algorithms, chapter 49, the 14 additional corrections.
double planetaryPhaseCorrection(double k);

}  // namespace quode
