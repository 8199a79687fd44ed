// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// search_latency: types 200 searches for a city key by key, half of them with a mistake, and prints how many keys there were,
// and the median, the 99th percentile and the longest time of a key, microseconds. The ten slowest texts go to standard error.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "data/CityDatabase.h"

namespace {

using namespace quode;
using std::chrono::steady_clock;

constexpr std::size_t wanted = 200, ofEachLetter = 8, slowest = 10;

/// Whether a byte of UTF-8 goes on with a letter.
bool isInsideLetter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Names of large cities: the first ones that are found for each letter. Every second one has two letters swapped.
std::vector<std::string> searches(const CityDatabase& cities) {
    std::vector<std::string> texts;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        const std::vector<CityHit> hits = cities.search(std::string(1, letter));
        for (std::size_t at = 0; at < std::min(ofEachLetter, hits.size()); ++at) {
            std::string text = hits[at].city.name;
            const std::size_t middle = text.size() / 2;
            if (texts.size() % 2 == 1 && middle + 1 < text.size()) std::swap(text[middle], text[middle + 1]);
            texts.push_back(std::move(text));
        }
    }
    texts.resize(std::min(wanted, texts.size()));
    return texts;
}

}  // namespace

int main() {
    const CityDatabase cities(CityDatabase::fileIn(QUODE_BUNDLE));
    std::vector<std::pair<long long, std::string>> times;
    for (const std::string& text : searches(cities)) {
        for (std::size_t keys = 1; keys <= text.size(); ++keys) {
            if (keys < text.size() && isInsideLetter(text[keys])) continue;
            const std::string typed = text.substr(0, keys);
            const auto begin = steady_clock::now();
            const auto hits = cities.search(typed);
            const auto end = steady_clock::now();
            if (hits.size() > 1000) return 1;  // the search is used
            times.emplace_back(std::chrono::duration_cast<std::chrono::microseconds>(end - begin).count(), typed);
        }
    }
    if (times.empty()) return 1;
    std::ranges::sort(times);
    const auto at = [&](std::size_t number) { return times[number].first; };
    std::printf("%zu %lld %lld %lld\n", times.size(), at(times.size() / 2), at(times.size() * 99 / 100),
                times.back().first);
    for (std::size_t i = 1; i <= std::min(slowest, times.size()); ++i) {
        const auto& [time, text] = times[times.size() - i];
        std::fprintf(stderr, "%7lld %s\n", time, text.c_str());
    }
    return 0;
}
