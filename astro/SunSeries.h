// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the places of the Sun share.
#pragma once

#include <cmath>

#include "astro/angles.h"

namespace quode {

/// Brings an angle into 0..360.
inline double fullCircle(double angle) {
    constexpr double exactBelow = 1e15;
    if (!(std::abs(angle) < exactBelow)) {
        const double rest = std::fmod(angle, 360.0);
        return rest < 0.0 ? rest + 360.0 : rest;
    }
    // The multiple of 360 and the difference are exact, so that this is the remainder of fmod. Where the quotient was
    // rounded up to a whole number the difference comes out below 0, and the circle that is added is the missing one.
    const double rest = angle - 360.0 * wholePart(angle / 360.0);
    return rest < 0.0 ? rest + 360.0 : rest;
}

/// Longitude of the Moon's ascending node, degrees, as the places of the Sun take it.
inline double lunarNode(double T) {
    return 125.04000091552734 - 1934.135986328125 * T;
}

}  // namespace quode
