// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "astro/Place.h"
#include "astro/sky_memo.h"

namespace quode {

/// The search for the times at which the Sun reaches altitudes on a day: `FastAstro::Iterasyon` for several altitudes
/// at once. All searches advance together, pass by pass; each takes exactly the steps that it takes alone.
class SunCourse {
  public:
    static constexpr std::size_t mostSearches = 9;

    /// One search, with the parameters and results of `FastAstro::Iterasyon`.
    struct Search {
        int angle, side;
        double temkin;
        double result = 12.0;
        int found = 1;
    };

    /// @param sun,observer         kept by reference
    /// @param longitudeCorrection  -longitude / 15, hours
    /// @param GMTValue             hours east of Greenwich
    SunCourse(const SunInfoForPray& sun, const LatitudeTrig& observer, double longitudeCorrection, double GMTValue);

    /// Runs the searches.
    /// @param searches  at most `mostSearches`; receive their results
    void solve(std::span<Search> searches) const;

    /// The time of one search in local hours; -1.0 when the altitude is not reached.
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
