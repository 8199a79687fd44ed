// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/moon_picture.h"

#include <cmath>

namespace quode::cli {
namespace {

enum class Dot { sky, dark, lit };

/// A dot at x and y, -1..1 each, x counted toward the light.
Dot dotAt(double x, double y, double illuminated) {
    if (x * x + y * y > 1.0) return Dot::sky;
    // The edge of the light is half an ellipse through both poles of the disc.
    const double edge = (1.0 - 2.0 * illuminated) * std::sqrt(1.0 - y * y);
    return x > edge ? Dot::lit : Dot::dark;
}

const char* character(Dot upper, Dot lower) {
    const bool isUpperLit = upper == Dot::lit, isLowerLit = lower == Dot::lit;
    if (isUpperLit && isLowerLit) return "█";
    if (isUpperLit) return "▀";
    if (isLowerLit) return "▄";
    return upper == Dot::sky && lower == Dot::sky ? " " : "·";
}

}  // namespace

std::vector<std::string> moonPicture(double illuminated, bool litOnTheRight, int height) {
    // A character is about twice as high as wide, so that two dots above each other are squares.
    const int size = 2 * height;
    const auto position = [size](int index) { return (2.0 * index + 1.0) / size - 1.0; };
    std::vector<std::string> lines;
    for (int row = 0; row < height; ++row) {
        std::string line;
        for (int column = 0; column < size; ++column) {
            const double x = litOnTheRight ? position(column) : -position(column);
            line += character(dotAt(x, position(2 * row), illuminated), dotAt(x, position(2 * row + 1), illuminated));
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace quode::cli
