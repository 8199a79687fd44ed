// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/color_schemes.h"

#include <cstddef>

namespace quode {
namespace {

struct Rgb {
    int red, green, blue;  // 0..255
};

constexpr std::array<std::array<Rgb, 5>, colorSchemeCount> schemes{{
    {{{239, 236, 202}, {230, 226, 175}, {167, 163, 126}, {4, 99, 128}, {0, 47, 47}}},
    {{{219, 238, 226}, {230, 226, 175}, {119, 196, 211}, {234, 46, 73}, {51, 55, 69}}},
    {{{255, 250, 213}, {255, 211, 78}, {219, 158, 54}, {189, 73, 50}, {16, 91, 99}}},
    {{{242, 242, 242}, {198, 224, 112}, {145, 196, 108}, {40, 125, 125}, {28, 52, 77}}},
    {{{245, 252, 208}, {227, 219, 154}, {199, 183, 115}, {177, 194, 179}, {19, 34, 45}}},
    {{{242, 207, 102}, {4, 217, 217}, {242, 153, 135}, {170, 75, 35}, {1, 10, 38}}},
}};

}  // namespace

ColorScheme colorScheme(int id) {
    const bool isKnown = id >= 0 && id < colorSchemeCount;
    const auto& scheme = schemes[static_cast<std::size_t>(isKnown ? id : defaultColorScheme)];
    ColorScheme colors;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        colors[i] = {scheme[i].red / 255.0, scheme[i].green / 255.0, scheme[i].blue / 255.0, 1.0};
    }
    return colors;
}

}  // namespace quode
