// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

/// Tolerances for reference values. All other values are compared exactly.
namespace quode::test {

inline constexpr double timeRelative = 1e-9;  ///< Julian days, sidereal times
inline constexpr double fastSunDegrees = 1e-9;
/// A single-precision argument may round differently with another maths library.
inline constexpr double accurateSunDegrees = 2e-6;
inline constexpr double clockHours = 1e-7;  ///< rise, set and prayer times
inline constexpr double preciseMoonDegrees = 7.6e-6;
inline constexpr double preciseMoonHours = 5e-7;
inline constexpr double steepAzimuthDegrees = 1e-5;  ///< azimuths from acos or asin near 0, 180 and 360 degrees

/// A tolerance relative to the size of the expected value, absolute below 1.
inline double relative(double expected, double tolerance = timeRelative) {
    return tolerance * std::max(1.0, std::abs(expected));
}

}  // namespace quode::test
