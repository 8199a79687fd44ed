// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>

namespace quode {

/// Degrees to radians: pi / 180 in single precision. The engine's results depend on it.
inline constexpr double degree = 0.01745329238474369;

/// Radians to degrees, the engine's inverse of `degree`; used instead of a division.
inline constexpr double degreesPerRadian = 57.295780181884766;

inline double sinDeg(double angle) {
    return std::sin(angle * degree);
}
inline double cosDeg(double angle) {
    return std::cos(angle * degree);
}
inline double tanDeg(double angle) {
    return std::tan(angle * degree);
}

/// The whole part, as std::trunc gives it, without a function call.
inline double wholePart(double x) {
    constexpr double largest = 9e15;
    return std::abs(x) < largest ? static_cast<double>(static_cast<std::int64_t>(x)) : std::trunc(x);
}

/// Arc sine in radians. An argument that exceeds 1 by rounding alone counts as 1; farther outside -1..1 the result is a
/// NaN, which the caller turns into a mark.
inline double safeAsin(double x) {
    constexpr double rounding = 1e-9;
    return std::asin(std::abs(x) > 1.0 && std::abs(x) < 1.0 + rounding ? std::copysign(1.0, x) : x);
}

/// Below this horizontal part of a unit vector, near the zenith or a pole, a direction has no azimuth.
inline constexpr double smallestHorizontal = 1e-7;

/// The value; the mark where it is a NaN or an infinity.
inline double realOr(double mark, double value) {
    return std::isfinite(value) ? value : mark;
}

/// Julian centuries from J2000.
constexpr double centuriesFromJ2000(double julianDay) {
    return (julianDay - 2451545.0) / 36525.0;
}

}  // namespace quode
