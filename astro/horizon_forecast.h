// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Predicts in which hours of a day a body may cross the horizon, so that the searches for rise and set evaluate the
// engine's series in those hours only. Nothing that is computed here enters a result.
#pragma once

#include <array>

namespace quode {

/// How the parabola through three hours (before, middle, after) crosses zero.
enum class Crossing : unsigned char {
    none,     ///< stays on one side
    rising,   ///< has exactly one root, and was below before
    setting,  ///< has exactly one root, and was above before
    unclear,  ///< too close to decide
};

/// The heights of a body at the whole hours of one search, by short formulas with a bounded error against the engine's
/// series.
class HorizonForecast {
  public:
    enum class Body { sun, moon };

    /// @param midnight                 Julian day of 0 h of the day, from which hours are counted
    /// @param firstHour                the first of 25 hours
    /// @param sinLatitude,cosLatitude  of the place
    /// @param longitude                degrees, east positive
    /// @param siderealTime             Greenwich mean sidereal time at midnight, hours
    /// @param sinDepth                 added to the sine of the altitude
    HorizonForecast(Body body, double midnight, int firstHour, double sinLatitude, double cosLatitude, double longitude,
                    double siderealTime, double sinDepth);

    /// The crossing from one hour before to one hour after an hour.
    /// @param hour  `firstHour` + 1 to `firstHour` + 23
    Crossing at(int hour) const {
        const auto i = static_cast<std::size_t>(hour - firstHour_);
        return kindOf(heights_[i - 1], heights_[i], heights_[i + 1]);
    }

    /// Sine and cosine of the Sun's declination, good to 0.0003.
    struct SunDeclination {
        double sine, cosine;
    };
    static SunDeclination sunDeclination(double julianDay);

    /// Sine of the altitude plus `sinDepth` at an hour.
    double height(int hour) const { return heights_[static_cast<std::size_t>(hour - firstHour_)]; }

  private:
    // The heights differ from the engine's by less than 0.003 in the years 1 to 9999, mostly because the engine's
    // sidereal time has single-precision steps. Between three hours a parabola departs from the nearest of them by
    // 0.0086 + 0.003 at most.
    static constexpr double error = 0.004;
    static constexpr double farFromZero = 0.018;

    static Crossing kindOf(double before, double middle, double after) {
        if (before > farFromZero && middle > farFromZero && after > farFromZero) return Crossing::none;
        if (before < -farFromZero && middle < -farFromZero && after < -farFromZero) return Crossing::none;
        if (before < -error && after > error) return Crossing::rising;
        if (before > error && after < -error) return Crossing::setting;
        return Crossing::unclear;
    }

    int firstHour_;
    std::array<double, 25> heights_;
};

}  // namespace quode
