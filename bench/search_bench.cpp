// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The search for a city, key by key.
#include <benchmark/benchmark.h>

#include <string>

#include "data/CityDatabase.h"

namespace quode {
namespace {

/// A text as it is typed: a search for each of its beginnings.
void Typing(benchmark::State& state, const std::string& text) {
    const CityDatabase cities(CityDatabase::fileIn(QUODE_BUNDLE));
    for (auto _ : state) {
        for (std::size_t keys = 1; keys <= text.size(); ++keys)
            benchmark::DoNotOptimize(cities.search(text.substr(0, keys)));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK_CAPTURE(Typing, name, "san francisco")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Typing, withMistake, "istambull")->Unit(benchmark::kMicrosecond);

/// One key: the slowest beginnings, and texts with mistakes.
void Search(benchmark::State& state, const char* text) {
    const CityDatabase cities(CityDatabase::fileIn(QUODE_BUNDLE));
    for (auto _ : state) benchmark::DoNotOptimize(cities.search(text));
}
BENCHMARK_CAPTURE(Search, oneLetter, "s")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, twoLetters, "sa")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, threeLetters, "sai")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, name, "istanbul")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, nameAndRegion, "London, CA")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, shortMistake, "Xaris")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, mistake, "Istambull")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, longMistake, "Constantinopel")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Search, nothing, "Zzyzxqvwk")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quode
