// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The engine: prayer times, whole days, the Moon, the magnetic field and the calendars.
#include <benchmark/benchmark.h>

#include <vector>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/MagneticVariation.h"
#include "bulk.h"
#include "common/calendar.h"
#include "data/city_day.h"

namespace quode {
namespace {

constexpr double firstOf2026 = 2461041.5;
const Site istanbul{41.01384, 28.94966, {3.0}, true};
const Site svalbard{78.22, 15.65, {1.0}, true};

VAKDate dayAfter(double first, int days) {
    VAKDate date;
    AstroGlobalFuncs::JulianToCalendar(first + days, date, true);
    return VAKDateMake(date.Days, date.Months, date.Years, 0, 0, 0);
}

std::vector<VAKDate> yearOfDays() {
    std::vector<VAKDate> days;
    for (int day = 0; day < 365; ++day) days.push_back(dayAfter(firstOf2026, day));
    return days;
}

/// Inhabited latitudes all over the Earth and days of fifty years, in no order.
struct Mixture {
    std::vector<Site> sites;
    std::vector<VAKDate> days;

    Mixture() {
        for (int i = 0; i < 512; ++i) {
            const double longitude = -180.0 + i * 137.508 - 360.0 * static_cast<int>(i * 137.508 / 360.0);
            const double latitude = -40.0 + i * 61.803 - 100.0 * static_cast<int>(i * 61.803 / 100.0);
            sites.push_back({latitude, longitude, {static_cast<double>(static_cast<int>(longitude / 15.0))}, true});
            days.push_back(dayAfter(2451544.5, i * 7919 % 18262));
        }
    }
};

void setPlace(FastAstro& engine, const Site& site, const VAKDate& day) {
    engine.SetCurrentDateTime(day);
    engine.SetPlace(site.latitude, site.longitude, site.rule.gmt, 0, 0, 0, 0, 0, 0.0, 1);
}

void PrayerTimesAnyOrder(benchmark::State& state) {
    const Mixture mixture;
    std::size_t i = 0;
    for (auto _ : state) {
        FastAstro engine;
        i = (i + 1) % mixture.sites.size();
        setPlace(engine, mixture.sites[i], mixture.days[i]);
        benchmark::DoNotOptimize(engine.CalculatePrayTimes());
    }
}
BENCHMARK(PrayerTimesAnyOrder)->Unit(benchmark::kMicrosecond);

void PrayerTimesInOrder(benchmark::State& state) {
    const std::vector<VAKDate> days = yearOfDays();
    for (auto _ : state) benchmark::DoNotOptimize(timesOfDays(istanbul, days));
    state.SetItemsProcessed(state.iterations() * 365);
}
BENCHMARK(PrayerTimesInOrder)->Unit(benchmark::kMicrosecond);

void WorstDay(benchmark::State& state) {
    for (auto _ : state) {
        FastAstro engine;
        setPlace(engine, svalbard, VAKDateMake(21, 6, 2026, 0, 0, 0));
        benchmark::DoNotOptimize(engine.CalculatePrayTimes());
    }
}
BENCHMARK(WorstDay)->Unit(benchmark::kMicrosecond);

void WholeDay(benchmark::State& state) {
    const Mixture mixture;
    std::size_t i = 0;
    for (auto _ : state) {
        i = (i + 1) % mixture.sites.size();
        benchmark::DoNotOptimize(computeCityDay(mixture.sites[i], mixture.days[i]));
    }
}
BENCHMARK(WholeDay)->Unit(benchmark::kMicrosecond);

void WholeDaysInOrder(benchmark::State& state) {
    const std::vector<VAKDate> days = yearOfDays();
    for (auto _ : state) benchmark::DoNotOptimize(wholeDays(istanbul, days));
    state.SetItemsProcessed(state.iterations() * 365);
}
BENCHMARK(WholeDaysInOrder)->Unit(benchmark::kMicrosecond);

void ThousandPlacesOnOneDay(benchmark::State& state) {
    std::vector<Site> sites;
    for (int i = 0; i < 1000; ++i) sites.push_back({-50.0 + 0.115 * i, -180.0 + 0.36 * i, {-12.0 + 0.024 * i}, true});
    for (auto _ : state) benchmark::DoNotOptimize(wholeDay(sites, VAKDateMake(21, 11, 2026, 0, 0, 0)));
    state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(ThousandPlacesOnOneDay)->Unit(benchmark::kMicrosecond);

void MoonriseAndMoonset(benchmark::State& state) {
    const Mixture mixture;
    std::size_t i = 0;
    for (auto _ : state) {
        FastAstro engine;
        i = (i + 1) % mixture.sites.size();
        const VAKDate& day = mixture.days[i];
        setPlace(engine, mixture.sites[i], day);
        MoonInfo moon;
        engine.MoonRiseSetTrans(day, moon);
        benchmark::DoNotOptimize(moon);
    }
}
BENCHMARK(MoonriseAndMoonset)->Unit(benchmark::kMicrosecond);

void Declination(benchmark::State& state) {
    double latitude = -60.0;
    for (auto _ : state) {
        latitude = latitude > 60.0 ? -60.0 : latitude + 0.37;
        benchmark::DoNotOptimize(declinationAt(VAKDateMake(21, 11, 2026, 0, 0, 0), latitude, 28.95));
    }
}
BENCHMARK(Declination)->Unit(benchmark::kNanosecond);

void DeclinationOfOnePlace(benchmark::State& state) {
    const std::vector<VAKDate> days = yearOfDays();
    for (auto _ : state) benchmark::DoNotOptimize(declinationsOfDays(istanbul, days));
    state.SetItemsProcessed(state.iterations() * 365);
}
BENCHMARK(DeclinationOfOnePlace)->Unit(benchmark::kMicrosecond);

void DeclinationOfOneDate(benchmark::State& state) {
    const Mixture mixture;
    for (auto _ : state) {
        benchmark::DoNotOptimize(declinationsOfPlaces(mixture.sites, VAKDateMake(21, 11, 2026, 0, 0, 0)));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(mixture.sites.size()));
}
BENCHMARK(DeclinationOfOneDate)->Unit(benchmark::kMicrosecond);

void HijriDateByTable(benchmark::State& state) {
    double julianDay = 2455000.5;
    for (auto _ : state) {
        julianDay = julianDay > 2469000.0 ? 2455000.5 : julianDay + 1.37;
        benchmark::DoNotOptimize(calendar::JulianToHijri(julianDay));
    }
}
BENCHMARK(HijriDateByTable)->Unit(benchmark::kNanosecond);

void HijriYearByCrescent(benchmark::State& state) {
    for (auto _ : state) {
        for (int day = 0; day < 355; ++day) {
            const VAKDate date = dayAfter(firstOf2026, day);
            FastAstro engine;
            VAKDate hijri;
            engine.RealGregJulToHicri(date.Days, date.Months, date.Years, hijri);
            benchmark::DoNotOptimize(hijri);
        }
    }
}
BENCHMARK(HijriYearByCrescent)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quode
