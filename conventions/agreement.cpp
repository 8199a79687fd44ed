// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Written by build/release/bin/conventions_page from the published rows of the tests.
#include "conventions/agreement.h"

#include <algorithm>
#include <iterator>

namespace quode::conventions {
namespace {

struct Line {
    std::string_view key, text;
};

// clang-format off
constexpr Line lines[] = {
    {"diyanet", "100 published rows of 5 places, exact/within 1/within 2 minutes in percent: Fajr 88/98/98, sunrise 91/100/100, Dhuhr 94/100/100, Asr 88/100/100, Maghrib 91/100/100, Isha 92/98/98; worst 5 min"},
    {"jakim", "48 published rows of 3 places, exact/within 1/within 2 minutes in percent: Fajr 92/100/100, sunrise 85/100/100, Dhuhr 79/100/100, Asr 92/100/100, Maghrib 88/100/100, Isha 92/100/100; worst 1 min"},
    {"muis", "20 published rows of 1 place, exact/within 1/within 2 minutes in percent: Fajr 70/100/100, sunrise 100/100/100, Dhuhr 70/100/100, Asr 55/100/100, Maghrib 80/100/100, Isha 95/100/100; worst 1 min"},
    {"kemenag", "20 published rows of 2 places, exact/within 1/within 2 minutes in percent: Fajr 90/100/100, sunrise 80/100/100, Dhuhr 80/100/100, Asr 70/100/100, Maghrib 75/100/100, Isha 65/100/100; worst 1 min"},
    {"umm-al-qura", "2 published rows of 1 place, exact/within 1/within 2 minutes in percent: Fajr 100/100/100, sunrise 100/100/100, Dhuhr 100/100/100, Asr 100/100/100, Maghrib 100/100/100, Isha 100/100/100; worst 0 min"},
    {"dubai", "2 published rows of 1 place, exact/within 1/within 2 minutes in percent: Fajr 100/100/100, sunrise 100/100/100, Dhuhr 0/100/100, Asr 50/100/100, Maghrib 100/100/100, Isha 100/100/100; worst 1 min"},
    {"kuwait", "2 published rows of 1 place, exact/within 1/within 2 minutes in percent: Fajr 50/100/100, sunrise 100/100/100, Dhuhr 100/100/100, Asr 50/100/100, Maghrib 0/100/100, Isha 0/100/100; worst 1 min"},
    {"qatar", "20 published rows of 1 place, exact/within 1/within 2 minutes in percent: Fajr 80/100/100, sunrise 60/100/100, Dhuhr 100/100/100, Asr 90/100/100, Maghrib 60/100/100, Isha 60/100/100; worst 1 min"},
    {"algeria", "24 published rows of 2 places, exact/within 1/within 2 minutes in percent: Fajr 96/100/100, sunrise 100/100/100, Dhuhr 96/100/100, Asr 100/100/100, Maghrib 100/100/100, Isha 92/100/100; worst 1 min"},
    {"tunisia", "32 published rows of 2 places, exact/within 1/within 2 minutes in percent: Fajr 84/100/100, sunrise 69/100/100, Dhuhr 91/100/100, Asr 91/100/100, Maghrib 88/100/100, Isha 62/100/100; worst 1 min"},
    {"morocco", "8 published rows of 2 places, exact/within 1/within 2 minutes in percent: Fajr 100/100/100, sunrise 50/50/100, Dhuhr 100/100/100, Asr 75/100/100, Maghrib 0/100/100, Isha 100/100/100; worst 2 min"},
    {"bosnia", "20 published rows of 1 place, exact/within 1/within 2 minutes in percent: Fajr 40/100/100, sunrise 45/70/100, Dhuhr 70/100/100, Asr 45/100/100, Maghrib 70/100/100, Isha 35/100/100; worst 2 min"},
    {"sri-lanka", "24 published rows of 2 places, exact/within 1/within 2 minutes in percent: Fajr 42/83/100, sunrise 46/96/100, Dhuhr 50/96/100, Asr 50/92/100, Maghrib 46/83/100, Isha 58/92/100; worst 2 min"},
    {"moonsighting", "2 published rows of 1 place, exact/within 1/within 2 minutes in percent: Fajr 50/100/100, sunrise 100/100/100, Dhuhr 100/100/100, Asr 50/100/100, Maghrib 100/100/100, Isha 100/100/100; worst 1 min"},
    {"london-unified", "24 published rows of 1 place, exact/within 1/within 2 minutes in percent: Fajr 8/17/46, sunrise 88/100/100, Dhuhr 100/100/100, Asr 67/100/100, Maghrib 96/100/100, Isha 8/25/50; worst 7 min"},
};
// clang-format on

}  // namespace

std::string_view agreementLine(std::string_view key) {
    const auto* found = std::ranges::find(lines, key, &Line::key);
    return found == std::end(lines) ? "not checked against published rows" : found->text;
}

}  // namespace quode::conventions
