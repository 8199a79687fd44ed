// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/WorldMagneticModel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "astro/wmm2025.h"

namespace quode {
namespace {

constexpr int maximumDegree = 12;
constexpr double referenceRadius = 6371.2;                                       // km
constexpr double equatorialRadius = 6378.137, flattening = 1.0 / 298.257223563;  // km
constexpr double radian = std::numbers::pi / 180.0;
constexpr double highestLatitude = 89.999;

using Degrees = std::array<std::array<double, maximumDegree + 1>, maximumDegree + 1>;

/// Schmidt semi-normalised Legendre functions of a colatitude and their derivatives.
struct Legendre {
    Degrees value{}, slope{};

    explicit Legendre(double colatitude) {
        const double c = std::cos(colatitude), s = std::sin(colatitude);
        value[0][0] = 1.0;
        for (int n = 1; n <= maximumDegree; ++n) {
            for (int m = 0; m <= n; ++m) fill(n, m, c, s);
        }
    }

  private:
    void fill(int n, int m, double c, double s) {
        const auto N = static_cast<std::size_t>(n), M = static_cast<std::size_t>(m);
        if (n == m) {
            const double factor = n == 1 ? 1.0 : std::sqrt((2.0 * n - 1.0) / (2.0 * n));
            value[N][M] = factor * s * value[N - 1][M - 1];
            slope[N][M] = factor * (s * slope[N - 1][M - 1] + c * value[N - 1][M - 1]);
            return;
        }
        const double root = std::sqrt(double(n * n - m * m));
        const double below = n >= 2 ? std::sqrt(double((n - 1) * (n - 1) - m * m)) : 0.0;
        const double lower = n >= 2 && m <= n - 2 ? value[N - 2][M] : 0.0;
        const double lowerSlope = n >= 2 && m <= n - 2 ? slope[N - 2][M] : 0.0;
        value[N][M] = ((2.0 * n - 1.0) * c * value[N - 1][M] - below * lower) / root;
        slope[N][M] = ((2.0 * n - 1.0) * (c * slope[N - 1][M] - s * value[N - 1][M]) - below * lowerSlope) / root;
    }
};

/// Geocentric latitude (radians) and radius (km) of a geodetic point.
struct Geocentric {
    double latitude, radius;
};

Geocentric geocentric(double latitude, double height) {
    constexpr double e2 = flattening * (2.0 - flattening);
    const double s = std::sin(latitude), c = std::cos(latitude);
    const double curvature = equatorialRadius / std::sqrt(1.0 - e2 * s * s);
    const double p = (curvature + height) * c, z = (curvature * (1.0 - e2) + height) * s;
    return {std::atan2(z, p), std::hypot(p, z)};
}

}  // namespace

WorldMagneticModel::Direction WorldMagneticModel::at(double year, double latitude, double longitude, double height) {
    const double geodetic = std::clamp(latitude, -highestLatitude, highestLatitude) * radian;
    const Geocentric point = geocentric(geodetic, height);
    const Legendre legendre(std::numbers::pi / 2.0 - point.latitude);
    const double lambda = longitude * radian, years = year - epoch;
    double north = 0.0, east = 0.0, down = 0.0;
    for (const auto& term : wmm2025::coefficients) {
        const auto n = static_cast<std::size_t>(term.degree), m = static_cast<std::size_t>(term.order);
        const double g = term.g + years * term.gChange, h = term.h + years * term.hChange;
        const double c = std::cos(term.order * lambda), s = std::sin(term.order * lambda);
        const double power = std::pow(referenceRadius / point.radius, term.degree + 2);
        north += power * (g * c + h * s) * legendre.slope[n][m];  // the colatitude increases southward
        east += power * term.order * (g * s - h * c) * legendre.value[n][m];
        down -= power * (term.degree + 1) * (g * c + h * s) * legendre.value[n][m];
    }
    east /= std::cos(point.latitude);
    const double tilt = point.latitude - geodetic;
    const double x = north * std::cos(tilt) - down * std::sin(tilt), z = north * std::sin(tilt) + down * std::cos(tilt);
    const double horizontal = std::hypot(x, east);
    return {std::atan2(east, x) / radian, std::atan2(z, horizontal) / radian, horizontal};
}

}  // namespace quode
