// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quode::conventions {

inline constexpr double radiansPerDegree = std::numbers::pi / 180.0;

inline double sinDeg(double degrees) {
    return std::sin(degrees * radiansPerDegree);
}
inline double cosDeg(double degrees) {
    return std::cos(degrees * radiansPerDegree);
}
/// Arc sine in degrees; a sine beyond -1..1 counts as -1 or 1.
inline double asinDeg(double sine) {
    return std::asin(std::clamp(sine, -1.0, 1.0)) / radiansPerDegree;
}
/// An angle in degrees reduced to 0..360.
inline double circle(double degrees) {
    const double rest = std::fmod(degrees, 360.0);
    return rest < 0.0 ? rest + 360.0 : rest;
}

}  // namespace quode::conventions
