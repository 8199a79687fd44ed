// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The engine's caches: values of Sun and Moon that do not depend on the place, shared by searches, days and cities, and
// values that the searches of one place share. Each record holds the input that it was computed for, and is used only
// for exactly that input.
#pragma once

#include <array>
#include <cstddef>
#include <limits>

#include "astro/Place.h"

namespace quode {

/// Compares unequal to everything, so an empty record never matches.
inline constexpr double nothingYet = std::numeric_limits<double>::quiet_NaN();

/// The Sun at a moment, by its mean elements, and the sidereal time of the moment.
struct SunMoment {
    double julianDay = nothingYet;  ///< what the rest was computed for
    double declination = 0.0, rightAscension = 0.0, eclipticLongitude = 0.0;
    double sinDeclination = 0.0, cosDeclination = 0.0;
    double siderealTime = 0.0;  ///< at Greenwich, hours
};

/// The Sun at a moment, by the VSOP87 series, and the equation of time in minutes.
struct SunMidnight {
    double julianDay = nothingYet;  ///< what the rest was computed for
    double declination = 0.0, rightAscension = 0.0, distance = 0.0, equation = 0.0;
};

/// The Moon at a moment, by its largest terms, and the sidereal time of the moment.
struct MoonMoment {
    double julianDay = nothingYet;  ///< what the rest was computed for
    double longitude = 0.0, latitude = 0.0, declination = 0.0, rightAscension = 0.0, hourAngle = 0.0;
    double sinDeclination = 0.0, cosDeclination = 0.0;
    double siderealTime = 0.0;  ///< at Greenwich, hours
};

/// The values of the search for moonrise and moonset at one hour. Both searches, and every later one of the same day and
/// place, use the same hours.
struct MoonHour {
    double julianDay = nothingYet, Lat = 0.0, Lon = 0.0;  ///< what the rest was computed for
    double before = 0.0, middle = 0.0, after = 0.0;       ///< sines of altitude above the rising Moon's
    double L_Moon = 0.0, B_Moon = 0.0;                    ///< the fields as the computation left them
    double MoonDec = 0.0, MoonRA = 0.0, MoonGHA = 0.0;
};

/// A search for sunrise and sunset that found both, with the fields as it left them.
struct SunSearch {
    double midnight = nothingYet, Lat = 0.0, Lon = 0.0;  ///< the day and place of the search
    int zone = 0;
    double UTRise = 0.0, UTSet = 0.0, YE = 0.0, Zero1 = 0.0, Zero2 = 0.0, DX = 0.0;
    double SunDec = 0.0, SunRA = 0.0, EclipticLongitude = 0.0;
};

/// The observer's latitude with its sine and cosine.
struct LatitudeTrig {
    double latitude = nothingYet, sine = 0.0, cosine = 0.0;
};

/// The observer's longitude in degrees and in hours, both east positive.
struct Meridian {
    double longitude = nothingYet, hours = 0.0;
};

/// The qibla of a place.
struct QiblaPoint {
    double latitude = nothingYet, longitude = 0.0;
    KiblePair kible;
};

/// A table with one slot for each key modulo its size; a new entry replaces an old one.
template <typename Entry, std::size_t size>
class SkyTable {
  public:
    Entry& at(long key) { return entries_[static_cast<std::size_t>(key) % size]; }

  private:
    std::array<Entry, size> entries_{};
};

/// The values that many places share on a day, or one place on many days: pass it to the engines with
/// `FastAstro::share`. One thread at a time may use it.
struct SkyMemo {
    SkyTable<SunMoment, 128> sunMoments;
    SkyTable<SunMidnight, 1024> sunMidnights;
    SkyTable<MoonMoment, 1024> moonMoments;
};

}  // namespace quode
