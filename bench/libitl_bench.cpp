// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The same work by libitl, for comparison, where its package is installed.
#include <benchmark/benchmark.h>

extern "C" {
#include <itl/hijri.h>
#include <itl/prayer.h>
}

namespace {

void LibitlPrayerTimesInOrder(benchmark::State& state) {
    Location istanbul{28.94966, 41.01384, 3.0, 0, 0.0, 1010.0, 10.0};
    Method method;
    getMethod(5, &method);
    int number = 0;
    for (auto _ : state) {
        Date day{1 + number % 28, 1 + number / 28 % 12, 2026};
        ++number;
        Prayer times[6];
        getPrayerTimes(&istanbul, &method, &day, times);
        benchmark::DoNotOptimize(times);
    }
}
BENCHMARK(LibitlPrayerTimesInOrder)->Unit(benchmark::kMicrosecond);

void LibitlHijriDate(benchmark::State& state) {
    int number = 0;
    for (auto _ : state) {
        sDate date{};
        h_date(&date, 1 + number % 28, 1 + number / 28 % 12, 2026);
        ++number;
        benchmark::DoNotOptimize(date);
    }
}
BENCHMARK(LibitlHijriDate)->Unit(benchmark::kNanosecond);

}  // namespace
