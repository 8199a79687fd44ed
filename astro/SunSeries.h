// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Parts shared by the computations of the Sun's place.
#pragma once

#include <cmath>

#include "astro/angles.h"

namespace quode {

/// An angle in degrees reduced to 0..360.
inline double fullCircle(double angle) {
    constexpr double exactBelow = 1e15;
    if (!(std::abs(angle) < exactBelow)) {
        const double rest = std::fmod(angle, 360.0);
        return rest < 0.0 ? rest + 360.0 : rest;
    }
    // The multiple of 360 and the difference are exact, so this is the remainder of fmod. Where the quotient was rounded
    // up to a whole number the difference is negative, and adding a circle corrects it.
    const double rest = angle - 360.0 * wholePart(angle / 360.0);
    return rest < 0.0 ? rest + 360.0 : rest;
}

/// Longitude of the Moon's ascending node in degrees, for the nutation of the Sun's place.
/// @param T  Julian centuries from J2000
/// Source: J. Meeus, Astronomical Algorithms, chapter 25.
inline double lunarNode(double T) {
    return 125.04000091552734 - 1934.135986328125 * T;
}

}  // namespace quode
