// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/contrast.h"

#include <algorithm>
#include <cmath>

namespace quode {
namespace {

double linear(double component) {
    return component <= 0.03928 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const Color& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

}  // namespace

double contrastRatio(const Color& a, const Color& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Color over(const Color& front, const Color& back) {
    const auto mixed = [&](double f, double b) { return f * front.alpha + b * (1.0 - front.alpha); };
    return {mixed(front.red, back.red), mixed(front.green, back.green), mixed(front.blue, back.blue), 1.0};
}

}  // namespace quode
