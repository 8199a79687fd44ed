// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Written by build/release/bin/conventions_page from the published rows of the tests.
#include "conventions/agreement.h"

#include <algorithm>
#include <iterator>

namespace quode::conventions {
namespace {

// clang-format off
constexpr PublishedAgreement agreements[] = {
    {"diyanet", 100, 5, {88, 91, 94, 88, 91, 92}, {98, 100, 100, 100, 100, 98}, {98, 100, 100, 100, 100, 98}, 5},
    {"jakim", 48, 3, {92, 85, 79, 92, 88, 92}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"muis", 20, 1, {70, 100, 70, 55, 80, 95}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"kemenag", 20, 2, {90, 80, 80, 70, 75, 65}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"umm-al-qura", 2, 1, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 0},
    {"dubai", 2, 1, {100, 100, 0, 50, 100, 100}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"kuwait", 2, 1, {50, 100, 100, 50, 0, 0}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"qatar", 20, 1, {80, 60, 100, 90, 60, 60}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"algeria", 24, 2, {96, 100, 96, 100, 100, 92}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"tunisia", 32, 2, {84, 69, 91, 91, 88, 63}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"morocco", 8, 2, {100, 50, 100, 75, 0, 100}, {100, 50, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 2},
    {"bosnia", 20, 1, {40, 45, 70, 45, 70, 35}, {100, 70, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 2},
    {"sri-lanka", 24, 2, {42, 46, 50, 50, 46, 58}, {83, 96, 96, 92, 83, 92}, {100, 100, 100, 100, 100, 100}, 2},
    {"moonsighting", 2, 1, {50, 100, 100, 50, 100, 100}, {100, 100, 100, 100, 100, 100}, {100, 100, 100, 100, 100, 100}, 1},
    {"london-unified", 24, 1, {8, 88, 100, 67, 96, 8}, {17, 100, 100, 100, 100, 25}, {46, 100, 100, 100, 100, 50}, 7},
};
// clang-format on

}  // namespace

const PublishedAgreement* publishedAgreement(std::string_view key) {
    const auto* found = std::ranges::find(agreements, key, &PublishedAgreement::key);
    return found == std::end(agreements) ? nullptr : found;
}

}  // namespace quode::conventions
