// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/SeasonalTwilight.h"

#include <array>
#include <chrono>
#include <cmath>

namespace quode::conventions {
namespace {

/// The minutes at the four nodes of half a year, from the winter solstice to the summer solstice.
using Knots = std::array<double, 4>;

constexpr std::array<double, 7> knotDays = {0, 91, 137, 183, 229, 275, 366};
constexpr std::array<std::size_t, 7> knotOrder = {0, 1, 2, 3, 2, 1, 0};

int daysFromWinterSolstice(double julianDay, bool isNorth) {
    using namespace std::chrono;
    const sys_days day{days(static_cast<int>(std::floor(julianDay - 2440587.5 + 0.5)))};
    const month_day solstice = isNorth ? December / 21 : June / 21;
    const year year = year_month_day(day).year();
    sys_days last = year / solstice;
    if (last > day) last = (year - years(1)) / solstice;
    return int((day - last).count());
}

double interpolate(const Knots& minutes, int day) {
    std::size_t i = 0;
    while (i + 2 < knotDays.size() && day >= knotDays[i + 1]) ++i;
    const double share = (day - knotDays[i]) / (knotDays[i + 1] - knotDays[i]);
    const double from = minutes[knotOrder[i]], to = minutes[knotOrder[i + 1]];
    return from + (to - from) * share;
}

}  // namespace

double minutesBeforeSunrise(double julianDay, double latitude) {
    const double L = std::abs(latitude) / 55.0;
    const Knots knots = {75 + 28.65 * L, 75 + 19.44 * L, 75 + 32.74 * L, 75 + 48.10 * L};
    return interpolate(knots, daysFromWinterSolstice(julianDay, latitude >= 0.0));
}

double minutesAfterSunset(double julianDay, double latitude, HighLatitudeRule twilight) {
    const double L = std::abs(latitude) / 55.0;
    Knots knots = {75 + 25.60 * L, 75 + 2.05 * L, 75 - 9.21 * L, 75 + 6.14 * L};
    if (twilight == HighLatitudeRule::moonsightingAhmer) {
        knots = {62 + 17.40 * L, 62 - 7.16 * L, 62 + 5.12 * L, 62 + 19.44 * L};
    } else if (twilight == HighLatitudeRule::moonsightingAbyad) {
        knots = {75 + 25.60 * L, 75 + 7.16 * L, 75 + 36.84 * L, 75 + 81.84 * L};
    }
    return interpolate(knots, daysFromWinterSolstice(julianDay, latitude >= 0.0));
}

}  // namespace quode::conventions
