// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/MoonPhases.h"

#include <cmath>
#include <iterator>
#include <span>

#include "astro/AstroGlobalFuncs.h"
#include "astro/PhaseSeries.h"
#include "astro/angles.h"

namespace quode {
namespace {

constexpr double epoch = 2451550.09766;        // mean new moon of 6 January 2000, dynamical time
constexpr double synodicMonth = 29.530588861;  // days

constexpr double c1800[] = {13.72, -0.332447, 0.0068612, 0.0041116, -3.7436e-4, 1.21272e-5, -1.699e-7, 8.75e-10};
constexpr double c1700[] = {8.83, 0.1603, -0.0059285, 0.00013336, -1.0 / 1174000.0};
constexpr double c1600[] = {120.0, -0.9808, -0.01532, 1.0 / 7129.0};
constexpr double c500[] = {1574.2, -556.01, 71.23472, 0.319781, -0.8503463, -0.005050998, 0.0083572073};
constexpr double cBefore500[] = {10583.6, -1014.41, 33.78311, -5.952053, -0.1798452, 0.022174192, 0.0090316521};
constexpr double c1860[] = {7.62, 0.5737, -0.251754, 0.01680668, -0.0004473624, 1.0 / 233174.0};
constexpr double c1900[] = {-2.79, 1.494119, -0.0598939, 0.0061966, -0.000197};
constexpr double c1920[] = {21.20, 0.84493, -0.076100, 0.0020936};
constexpr double c1941[] = {29.07, 0.407, -1.0 / 233.0, 1.0 / 2547.0};
constexpr double c1961[] = {45.45, 1.067, -1.0 / 260.0, -1.0 / 718.0};
constexpr double c1986[] = {63.86, 0.3345, -0.060374, 0.0017275, 0.000651814, 0.00002373599};
constexpr double c2005[] = {62.92, 0.32217, 0.005589};

/// Seconds as a polynomial of (year - origin) / unit, up to but not including the year `end`.
struct DeltaTPiece {
    double end, origin, unit;
    std::span<const double> coefficients;
};

constexpr DeltaTPiece deltaTPieces[] = {
    {500.0, 0.0, 100.0, cBefore500}, {1600.0, 1000.0, 100.0, c500}, {1700.0, 1600.0, 1.0, c1600},
    {1800.0, 1700.0, 1.0, c1700},    {1860.0, 1800.0, 1.0, c1800},  {1900.0, 1860.0, 1.0, c1860},
    {1920.0, 1900.0, 1.0, c1900},    {1941.0, 1920.0, 1.0, c1920},  {1961.0, 1950.0, 1.0, c1941},
    {1986.0, 1975.0, 1.0, c1961},    {2005.0, 2000.0, 1.0, c1986},  {2050.0, 2000.0, 1.0, c2005},
};

double polynomial(std::span<const double> coefficients, double x) {
    double sum = 0.0;
    for (auto c = coefficients.rbegin(); c != coefficients.rend(); ++c) sum = sum * x + *c;
    return sum;
}

/// Mean phase in dynamical time. k counts lunations from the epoch, T is k in Julian centuries.
double meanPhase(double k, double T) {
    const double coefficients[] = {0.0, 0.0, 0.00015437, -0.000000150, 0.00000000073};
    return epoch + synodicMonth * k + polynomial(coefficients, T);
}

PhaseArguments argumentsAt(double k, double T) {
    const double T2 = T * T, T3 = T2 * T, T4 = T3 * T;
    PhaseArguments at{};
    at.M = 2.5534 + 29.10535670 * k - 0.0000014 * T2 - 0.00000011 * T3;
    at.Mp = 201.5643 + 385.81693528 * k + 0.0107582 * T2 + 0.00001238 * T3 - 0.000000058 * T4;
    at.F = 160.7108 + 390.67050284 * k - 0.0016118 * T2 - 0.00000227 * T3 + 0.000000011 * T4;
    at.omega = 124.7746 - 1.56375588 * k + 0.0020672 * T2 + 0.00000215 * T3;
    at.E = 1.0 - 0.002516 * T - 0.0000074 * T2;
    // The argument's reduction keeps its small rounding error from growing with the centuries.
    for (double* angle : {&at.M, &at.Mp, &at.F, &at.omega}) *angle = std::fmod(*angle, 360.0);
    return at;
}

/// The phase with the given number of quarters since the new moon of January 2000.
MoonPhase phaseOf(int quarters) {
    const int phase = ((quarters % 4) + 4) % 4;
    const double k = quarters / 4.0;
    const double T = k / 1236.85;
    const double dynamical =
        meanPhase(k, T) + periodicPhaseCorrection(phase, argumentsAt(k, T)) + planetaryPhaseCorrection(k);
    const double year = 2000.0 + (dynamical - 2451544.5) / 365.25;
    return {phase, dynamical - deltaT(year) / 86400.0};
}

/// A number of quarters that is certainly before a moment: a true phase is never a month away from the mean one.
int quartersBefore(double julianDay) {
    return 4 * (static_cast<int>(std::floor((julianDay - epoch) / synodicMonth)) - 1);
}

}  // namespace

double deltaT(double year) {
    for (const DeltaTPiece& piece : deltaTPieces) {
        if (year < piece.end) return polynomial(piece.coefficients, (year - piece.origin) / piece.unit);
    }
    const double centuries = (year - 1820.0) / 100.0;
    const double parabola = -20.0 + 32.0 * centuries * centuries;
    return year < 2150.0 ? parabola - 0.5628 * (2150.0 - year) : parabola;
}

std::vector<MoonPhase> moonPhasesBetween(double firstJulianDay, double endJulianDay) {
    std::vector<MoonPhase> phases;
    for (int quarters = quartersBefore(firstJulianDay);; ++quarters) {
        const MoonPhase next = phaseOf(quarters);
        if (!(next.julianDay < endJulianDay)) return phases;
        if (next.julianDay >= firstJulianDay) phases.push_back(next);
    }
}

std::vector<MoonPhase> moonPhasesOfYear(int year) {
    return moonPhasesBetween(AstroGlobalFuncs::CalculateJulianDay(year, 1, 1, 0, 0, 0),
                             AstroGlobalFuncs::CalculateJulianDay(year + 1, 1, 1, 0, 0, 0));
}

MoonAge moonAge(double julianDay) {
    int quarters = quartersBefore(julianDay);
    double last = phaseOf(quarters).julianDay;
    double next = phaseOf(quarters + 4).julianDay;
    while (next <= julianDay) {
        quarters += 4;
        last = next;
        next = phaseOf(quarters + 4).julianDay;
    }
    return {julianDay - last, next - julianDay};
}

}  // namespace quode
