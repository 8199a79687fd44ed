// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The Moon: one city's sky summary, one Hijri date by the crescent, and a year of them.
#include <benchmark/benchmark.h>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/MoonCompute.h"
#include "astro/MoonPhases.h"
#include "astro/MoonTransit.h"

namespace quode {
namespace {

constexpr double firstOf2026 = 2461041.5;

VAKDate dayOf2026(int dayOfYear) {
    VAKDate date;
    AstroGlobalFuncs::JulianToCalendar(firstOf2026 + dayOfYear % 365, date, true);
    return date;
}

VAKDate crescentDate(const VAKDate& day) {
    FastAstro engine;
    VAKDate hijri;
    engine.RealGregJulToHicri(day.Days, day.Months, day.Years, hijri);
    return hijri;
}

void SkySummaryOfACityDay(benchmark::State& state) {
    int day = 0;
    for (auto _ : state) {
        FastAstro engine;
        engine.SetCurrentDateTime(dayOf2026(day++));
        engine.SetPlace(41.01, 28.95, 3.0, 0, 0, 0, 0, 0, 0.0, 1);
        benchmark::DoNotOptimize(engine.getSomeInfoForQuodeWidget());
    }
}
BENCHMARK(SkySummaryOfACityDay)->Unit(benchmark::kMicrosecond);

void OneCrescentDate(benchmark::State& state) {
    int day = 0;
    for (auto _ : state) benchmark::DoNotOptimize(crescentDate(dayOf2026(day++)));
}
BENCHMARK(OneCrescentDate)->Unit(benchmark::kMicrosecond);

void AYearOfCrescentDates(benchmark::State& state) {
    for (auto _ : state) {
        for (int day = 0; day < 365; ++day) benchmark::DoNotOptimize(crescentDate(dayOf2026(day)));
    }
}
BENCHMARK(AYearOfCrescentDates)->Unit(benchmark::kMillisecond);

void PreciseMoon(benchmark::State& state) {
    double julianDay = firstOf2026;
    for (auto _ : state) {
        double declination = 0.0, rightAscension = 0.0, distance = 0.0;
        MoonCompute::Moon_Coordinate(julianDay += 0.1, declination, rightAscension, distance);
        benchmark::DoNotOptimize(distance);
    }
}
BENCHMARK(PreciseMoon)->Unit(benchmark::kMicrosecond);

void PhasesOfAYear(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(moonPhasesOfYear(2026));
}
BENCHMARK(PhasesOfAYear)->Unit(benchmark::kMicrosecond);

void TransitOfADay(benchmark::State& state) {
    int day = 0;
    for (auto _ : state) benchmark::DoNotOptimize(moonTransit(dayOf2026(day++), 28.95, 3.0));
}
BENCHMARK(TransitOfADay)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quode
