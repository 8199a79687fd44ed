// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "conventions/Convention.h"
#include "conventions/Sun.h"

namespace quode::conventions {

/// The hours of the Sun at one place around the noon of one civil date. Hours are universal time counted from 0 h of
/// that date; a place whose clock is far from its longitude has hours outside 0..24.
class SolarDay {
  public:
    enum class Side { morning, evening };

    /// julianDay   of 0 h UT of the civil date
    /// offset      hours of the clock east of Greenwich; says which noon belongs to the date
    SolarDay(double julianDay, double latitude, double longitude, double offset, SunMoment moment);

    double transit() const { return transit_; }

    /// When the centre of the Sun stands at an altitude (degrees) between noon and the midnight before or after it;
    /// nothing when it does not.
    std::optional<double> atAltitude(double altitude, Side side) const;

    /// When shadows have grown by a factor of the object's length; nothing when the Sun stays below the horizon.
    std::optional<double> atShadow(int factor) const;

    /// The altitude of the Sun's centre at noon and at the midnight after it, degrees.
    double noonAltitude() const;
    double midnightAltitude() const;

    double julianDay() const { return julianDay_; }
    double latitude() const { return latitude_; }
    double longitude() const { return longitude_; }
    double offset() const { return offset_; }

    /// The same place and way of counting, a number of days later.
    SolarDay shifted(int days) const;
    /// The same day on the same meridian at another latitude.
    SolarDay atLatitude(double latitude) const;
    /// The same day with the Sun of another moment.
    SolarDay at(SunMoment moment) const;

  private:
    SunPlace sunAt(double hours) const;
    double culmination(double guess) const;
    double altitude(double hours) const;
    template <typename Excess>
    std::optional<double> root(Excess excess, Side side) const;

    double julianDay_, latitude_, longitude_, offset_;
    SunMoment moment_;
    SunPlace start_;
    double meanNoon_, transit_ = 0.0;
};

}  // namespace quode::conventions
