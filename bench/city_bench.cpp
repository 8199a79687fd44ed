// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Cities: their computed days, their facts from the database, and the search.
#include <benchmark/benchmark.h>

#include "astro/MagneticVariation.h"
#include "common/GlobalFuncs.h"
#include "data/CityDatabase.h"
#include "data/city_day.h"
#include "platform/system_platform.h"

namespace quode {
namespace {

const Site istanbul{41.01384, 28.94966, {3.0}, true};

VAKDate dayOf(int day, int month) {
    return VAKDateMake(day, month, 2026, 0, 0, 0);
}

/// The shared services, with the bundle of this build.
void useBundle() {
    static const bool started = [] {
        GlobalFuncs::startUp(systemPlatform()).setApplicationBundlePath(QUODE_BUNDLE);
        return true;
    }();
    benchmark::DoNotOptimize(started);
}

void OneCityDay(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(computeCityDay(istanbul, dayOf(21, 11)));
}
BENCHMARK(OneCityDay)->Unit(benchmark::kMicrosecond);

void OneCityYear(benchmark::State& state) {
    for (auto _ : state) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= 30; ++day) benchmark::DoNotOptimize(computeCityDay(istanbul, dayOf(day, month)));
        }
    }
}
BENCHMARK(OneCityYear)->Unit(benchmark::kMillisecond);

void AThousandCitiesForOneDay(benchmark::State& state) {
    for (auto _ : state) {
        for (int city = 0; city < 1000; ++city) {
            const Site site{-60.0 + 0.12 * city, -180.0 + 0.36 * city, {-12.0 + 0.024 * city}, true};
            benchmark::DoNotOptimize(computeCityDay(site, dayOf(21, 11)));
        }
    }
}
BENCHMARK(AThousandCitiesForOneDay)->Unit(benchmark::kMillisecond);

void PolarDayWithFallbacks(benchmark::State& state) {
    const Site svalbard{78.22, 15.65, {1.0}, true};
    for (auto _ : state) benchmark::DoNotOptimize(computeCityDay(svalbard, dayOf(21, 6)));
}
BENCHMARK(PolarDayWithFallbacks)->Unit(benchmark::kMicrosecond);

void MagneticDeclination(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(MagneticVariation().getMagneticVariation(21, 11, 2026, 41.01, 28.95, 500.0));
    }
}
BENCHMARK(MagneticDeclination)->Unit(benchmark::kMicrosecond);

void LoadOfACity(benchmark::State& state) {
    useBundle();
    for (auto _ : state) {
        City city;
        city.setCityId("745044");  // Istanbul
        city.getAllCityInfo(city);
        if (city.name().empty()) state.SkipWithError("the city database was not read");
    }
}
BENCHMARK(LoadOfACity)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quode
