// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/PhaseSeries.h"

#include <span>

#include "astro/SeriesTables.h"
#include "astro/angles.h"

namespace quode {
namespace {

using Terms = std::span<const tables::PhaseTerm>;

double argumentOf(const tables::PhaseTerm& term, const PhaseArguments& at) {
    return at.M * term.M + at.Mp * term.Mp + at.F * term.F + at.omega * term.Omega;
}

double coefficientOf(const tables::PhaseTerm& term, const PhaseArguments& at) {
    double coefficient = term.coefficient;
    for (int power = 0; power < term.ePower; ++power) coefficient *= at.E;
    return coefficient;
}

double sumOfSines(Terms terms, const PhaseArguments& at) {
    double sum = 0.0;
    for (const auto& term : terms) sum += coefficientOf(term, at) * sinDeg(argumentOf(term, at));
    return sum;
}

double sumOfCosines(Terms terms, const PhaseArguments& at) {
    double sum = 0.0;
    for (const auto& term : terms) sum += coefficientOf(term, at) * cosDeg(argumentOf(term, at));
    return sum;
}

}  // namespace

double periodicPhaseCorrection(int phase, const PhaseArguments& arguments) {
    const auto quarterOffset = [&] { return sumOfCosines(tables::phase_quarter_W_cosine, arguments); };
    if (phase == 1) return sumOfSines(tables::phase_quarter, arguments) + quarterOffset();
    if (phase == 3) return sumOfSines(tables::phase_quarter, arguments) - quarterOffset();
    return phase == 2 ? sumOfSines(tables::phase_full, arguments) : sumOfSines(tables::phase_new, arguments);
}

double planetaryPhaseCorrection(double k) {
    double sum = 0.0;
    for (const auto& [degrees, degreesPerK, coefficient] : tables::moon_phase_planetary) {
        sum += coefficient * sinDeg(degrees + degreesPerK * k);
    }
    return sum;
}

}  // namespace quode
