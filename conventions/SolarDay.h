// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "conventions/Convention.h"
#include "conventions/Sun.h"

namespace quode::conventions {

/// The times of the Sun at one place around the noon of one civil date. Hours are universal time counted from 0 h of
/// that date; a place whose clock is far from its longitude has hours outside 0..24. Times are found to 0.1 second.
class SolarDay {
  public:
    enum class Side { morning, evening };

    /// @param julianDay           of 0 h UT of the civil date
    /// @param latitude,longitude  degrees, north and east positive
    /// @param offset              hours of the clock east of Greenwich; decides which noon belongs to the date
    /// @param moment              the instant for which the place of the Sun is taken
    SolarDay(double julianDay, double latitude, double longitude, double offset, SunMoment moment);

    /// The hour at which the Sun crosses the meridian.
    double transit() const { return transit_; }

    /// The hour at which the centre of the Sun is at an altitude, between noon and the midnight before or after it.
    /// @param altitude  degrees
    /// @return nothing when the Sun does not reach the altitude
    std::optional<double> atAltitude(double altitude, Side side) const;

    /// The hour in the afternoon at which shadows have grown by a factor of the object's length since noon.
    /// @return nothing when the Sun stays below the horizon
    std::optional<double> atShadow(int factor) const;

    /// The altitude of the Sun's centre at noon, degrees.
    double noonAltitude() const;

    /// The altitude of the Sun's centre at the midnight after noon, degrees.
    double midnightAltitude() const;

    double julianDay() const { return julianDay_; }
    double latitude() const { return latitude_; }
    double longitude() const { return longitude_; }
    double offset() const { return offset_; }

    /// The day that is a number of days later at the same place.
    SolarDay shifted(int days) const;

    /// The same day on the same meridian at another latitude, degrees.
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
