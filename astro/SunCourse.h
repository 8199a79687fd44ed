// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "astro/Place.h"
#include "astro/sky_memo.h"

namespace quode {

/// The search for the times at which the Sun reaches altitudes on a day: `FastAstro::Iterasyon`, for several altitudes
/// at once. The searches go pass by pass, side by side; each takes the very steps that it takes alone.
class SunCourse {
  public:
    static constexpr std::size_t mostSearches = 9;

    /// One search, as `Iterasyon` takes its arguments and gives its results.
    struct Search {
        int angle, side;
        double temkin;
        double result = 12.0;
        int found = 1;
    };

    /// Both records are kept by reference.
    SunCourse(const SunInfoForPray& sun, const LatitudeTrig& observer, double longitudeCorrection, double GMTValue);

    /// Makes the searches, `mostSearches` at most.
    void solve(std::span<Search> searches) const;

    /// The time of one search, or the mark.
    double timeOf(int angle, int side, double temkin) const;

  private:
    /// The Sun's declination at an hour, and its products with the latitude's sine and cosine.
    struct Position {
        double declination = 0.0;
        float sines = 0.0F, cosines = 0.0F;
    };

    double sinOfShadow(int factor, double declination) const;
    Position at(double hours) const;
    double equationAt(double hours) const;
    bool isFinished(Search& search, double cosH) const;

    const SunInfoForPray& sun_;
    const LatitudeTrig& observer_;
    double longitudeCorrection_, GMTValue_;
    double fall_, fallTZ_;
    bool isFalling_, isFallingTZ_;
    Position noon_;  // where every search begins
};

}  // namespace quode
