// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A look ahead for the searches for rise and set: in which hours of a day a body may cross the horizon. The searches
// then evaluate the engine's own series in those hours only. Nothing that is computed here enters a result.
#pragma once

#include <array>

namespace quode {

/// What the parabola through three hours (before, middle, after) does with zero.
enum class Crossing : unsigned char {
    none,     ///< stays on one side
    rising,   ///< has exactly one root, and was below before
    setting,  ///< has exactly one root, and was above before
    unclear,  ///< too near to tell
};

/// The heights of a body at the whole hours of one search, by short formulas that follow the engine's own series.
class HorizonForecast {
  public:
    enum class Body { sun, moon };

    /// midnight     Julian day of 0 h of the day, from which hours are counted
    /// firstHour    the first of 25 hours
    /// sinLatitude, cosLatitude, longitude (degrees, east positive): the place
    /// siderealTime Greenwich mean sidereal time at midnight, hours
    /// sinDepth     what is added to the sine of the altitude
    HorizonForecast(Body body, double midnight, int firstHour, double sinLatitude, double cosLatitude, double longitude,
                    double siderealTime, double sinDepth);

    /// What happens from one hour before to one hour after an hour.
    Crossing at(int hour) const {
        const auto i = static_cast<std::size_t>(hour - firstHour_);
        return kindOf(heights_[i - 1], heights_[i], heights_[i + 1]);
    }

    /// Sine and cosine of the Sun's declination, good to 0.0003.
    struct SunDeclination {
        double sine, cosine;
    };
    static SunDeclination sunDeclination(double julianDay);

    double height(int hour) const { return heights_[static_cast<std::size_t>(hour - firstHour_)]; }

  private:
    // The heights are within 0.003 of the engine's own in the years 1 to 9999, most of it from the sidereal time that
    // the engine takes in single precision. Between three hours a parabola leaves the nearest of them by 0.0086 + 0.003
    // at most.
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
