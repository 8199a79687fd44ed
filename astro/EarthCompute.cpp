// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/EarthCompute.h"

#include <cmath>
#include <span>

#include "astro/SeriesTables.h"

namespace quode {
namespace {

double sum(std::span<const tables::EarthTerm> terms, double t) {
    double total = 0.0;
    for (const auto& [A, B, C] : terms) total += A * std::cos(static_cast<float>(B + C * t));
    return total;
}

double millenniaFromJ2000(double julianDay) {
    return (julianDay - 2451545.0) / 365250.0;
}

}  // namespace

double EarthCompute::L0(double t) {
    return sum(tables::L0, t);
}
double EarthCompute::L1(double t) {
    return sum(tables::L1, t);
}
double EarthCompute::L2(double t) {
    return sum(tables::L2, t);
}
double EarthCompute::L3(double t) {
    return sum(tables::L3, t);
}
double EarthCompute::L4(double t) {
    return sum(tables::L4, t);
}
double EarthCompute::L5(double t) {
    return sum(tables::L5, t);
}
double EarthCompute::B0(double t) {
    return sum(tables::B0, t);
}
double EarthCompute::B1(double t) {
    return sum(tables::B1, t);
}
double EarthCompute::R0(double t) {
    return sum(tables::R0, t);
}
double EarthCompute::R1(double t) {
    return sum(tables::R1, t);
}
double EarthCompute::R2(double t) {
    return sum(tables::R2, t);
}
double EarthCompute::R3(double t) {
    return sum(tables::R3, t);
}
double EarthCompute::R4(double t) {
    return sum(tables::R4, t);
}

double EarthCompute::EarthL(double julianDay) {
    const double t = millenniaFromJ2000(julianDay);
    const double t2 = t * t, t3 = t2 * t, t4 = t3 * t, t5 = t4 * t;
    return (L0(t) + L1(t) * t + L2(t) * t2 + L3(t) * t3 + L4(t) * t4 + L5(t) * t5) / 1e8;
}

double EarthCompute::EarthB(double julianDay) {
    const double t = millenniaFromJ2000(julianDay);
    return (B0(t) + B1(t) * t) / 1e8;
}

double EarthCompute::EarthR(double julianDay) {
    const double t = millenniaFromJ2000(julianDay);
    const double t2 = t * t, t3 = t2 * t, t4 = t3 * t;
    return (R0(t) + R1(t) * t + R2(t) * t2 + R3(t) * t3 + R4(t) * t4) / 1e8;
}

}  // namespace quode
