// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/SunCourse.h"

#include <array>
#include <cmath>

#include "astro/PrayTimes.h"
#include "astro/angles.h"

namespace quode {
namespace {

constexpr int mostPasses = 10;

bool isShadowFactor(int angle) {
    return angle == 1 || angle == 2;
}

double sineOf(int angle) {
    return std::sin(static_cast<double>(static_cast<float>(angle * degree)));
}

/// The sine of a whole number of degrees, from a table for those that the prayer times need.
double sinOfAltitude(int angle) {
    constexpr int lowest = -20, highest = 10;
    static const auto sines = [] {
        std::array<double, highest - lowest + 1> table{};
        for (int i = lowest; i <= highest; ++i) table[static_cast<std::size_t>(i - lowest)] = sineOf(i);
        return table;
    }();
    return angle >= lowest && angle <= highest ? sines[static_cast<std::size_t>(angle - lowest)] : sineOf(angle);
}

}  // namespace

SunCourse::SunCourse(const SunInfoForPray& sun, const LatitudeTrig& observer, double longitudeCorrection,
                     double GMTValue)
    : sun_(sun),
      observer_(observer),
      longitudeCorrection_(longitudeCorrection),
      GMTValue_(GMTValue),
      fall_(sun.PrevDec - sun.NextDec),
      fallTZ_(sun.PrevTZ - sun.NextTZ),
      isFalling_(sun.PrevDec > sun.NextDec),
      isFallingTZ_(sun.PrevTZ > sun.NextTZ),
      noon_(at(12.0)) {}

void SunCourse::solve(std::span<Search> searches) const {
    std::array<double, mostSearches> sinAltitude{}, cosH{};
    std::array<Position, mostSearches> here;
    std::array<std::size_t, mostSearches> active{};
    std::size_t activeCount = searches.size();
    for (std::size_t i = 0; i < activeCount; ++i) {
        active[i] = i;
        if (!isShadowFactor(searches[i].angle)) sinAltitude[i] = sinOfAltitude(searches[i].angle);
    }
    for (int pass = 0; pass < mostPasses && activeCount > 0; ++pass) {
        const std::span<const std::size_t> now(active.data(), activeCount);
        for (const std::size_t i : now) {
            here[i] = pass == 0 ? noon_ : at(searches[i].result);
            if (isShadowFactor(searches[i].angle)) {
                sinAltitude[i] = sinOfShadow(searches[i].angle, here[i].declination);
            }
        }
        for (const std::size_t i : now) cosH[i] = (sinAltitude[i] - here[i].sines) / here[i].cosines;
        activeCount = 0;
        for (const std::size_t i : now) {
            if (!isFinished(searches[i], cosH[i])) active[activeCount++] = i;
        }
    }
}

/// Takes one step of a search.
/// @return true when it was the last one
bool SunCourse::isFinished(Search& search, double cosH) const {
    constexpr double oneSecond = 0.00027777778450399637, almostOne = 0.9990000128746033;
    const double previous = search.result;
    const double apparent = search.side * std::acos(cosH) * degreesPerRadian / 15.0 + 12.0;
    search.result = apparent - equationAt(apparent) + longitudeCorrection_ + search.temkin + GMTValue_;
    if (!std::isfinite(search.result)) {
        search.result = missingTime;
        search.found = 0;
        return true;
    }
    if (std::abs(search.result - previous) > oneSecond) return false;
    if (search.result < 0.0) search.result += 1.0;  // one hour, not one day
    search.found = cosH >= -almostOne && cosH <= almostOne ? 1 : 0;
    return true;
}

double SunCourse::timeOf(int angle, int side, double temkin) const {
    Search search{angle, side, temkin};
    solve({&search, 1});
    return search.found == 1 ? search.result : missingTime;
}

double SunCourse::sinOfShadow(int factor, double declination) const {
    constexpr double halfPi = 1.5707963705062866;
    return std::sin(halfPi - std::atan(factor + tanDeg(std::abs(observer_.latitude - declination))));
}

SunCourse::Position SunCourse::at(double hours) const {
    const double step = std::abs(fall_ * hours / 24.0);
    const double declination = isFalling_ ? sun_.PrevDec - step : sun_.PrevDec + step;
    return {declination, static_cast<float>(observer_.sine * sinDeg(declination)),
            static_cast<float>(observer_.cosine * cosDeg(declination))};
}

double SunCourse::equationAt(double hours) const {
    const double step = std::abs(fallTZ_ * hours / 24.0);
    return isFallingTZ_ ? sun_.PrevTZ - step : sun_.PrevTZ + step;
}

}  // namespace quode
