// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/CrescentOutlook.h"

#include <cmath>
#include <initializer_list>

#include "astro/FastAstro.h"
#include "conventions/SolarDay.h"
#include "conventions/Sun.h"
#include "conventions/degrees.h"

namespace quode::conventions {
namespace {

constexpr double equatorialRadius = 6378.14;    // km
constexpr double moonRadiusPerEarth = 0.27245;  // sine of the semi-diameter over sine of the parallax
constexpr double horizonDepression = 50.0 / 60.0;

struct Body {
    double altitude = 0.0, azimuth = 0.0;  ///< degrees, from the Earth's centre, without refraction
    double declination = 0.0, rightAscension = 0.0;
};

/// Greenwich apparent sidereal time in degrees, from the Sun's place.
double siderealTime(double julianDay, const SunPlace& sun) {
    const double hours = 24.0 * (julianDay + 0.5 - std::floor(julianDay + 0.5));
    return 15.0 * (hours - 12.0 + sun.equationOfTime) + sun.rightAscension;
}

class Sky {
  public:
    Sky(double julianDay, double latitude, double longitude) : latitude_(latitude) {
        const SunPlace place = sunAt(julianDay);
        const double sidereal = siderealTime(julianDay, place) + longitude;
        sun = bodyAt(sidereal, place.rightAscension, place.declination);
        FastAstro engine;
        engine.MoonDecRAAccurate(julianDay + deltaT(julianDay) / 86400.0);
        moon = bodyAt(sidereal, 15.0 * engine.MoonRA(), engine.MoonDec());
        parallax = asinDeg(equatorialRadius / engine.MoonDist());
    }

    double arcOfLight() const { return arc(moon.declination, moon.rightAscension); }

    Body sun, moon;
    double parallax = 0.0;  ///< of the Moon, degrees

  private:
    Body bodyAt(double sidereal, double rightAscension, double declination) const {
        const double hourAngle = sidereal - rightAscension;
        const double altitude = asinDeg(sinDeg(latitude_) * sinDeg(declination) +
                                        cosDeg(latitude_) * cosDeg(declination) * cosDeg(hourAngle));
        return {altitude, hourAngle, declination, rightAscension};
    }

    double arc(double declination, double rightAscension) const {
        const double cosine =
            sinDeg(declination) * sinDeg(sun.declination) +
            cosDeg(declination) * cosDeg(sun.declination) * cosDeg(rightAscension - sun.rightAscension);
        return 90.0 - asinDeg(cosine);
    }

    double latitude_;
};

/// Altitude of the Moon's upper limb above the apparent horizon, degrees.
double limbOverHorizon(const Sky& sky) {
    const double semidiameter = asinDeg(moonRadiusPerEarth * sinDeg(sky.parallax));
    return sky.moon.altitude - sky.parallax * cosDeg(sky.moon.altitude) + semidiameter + 34.0 / 60.0;
}

/// The moonset after sunset, universal hours; nothing when the Moon sets before the Sun.
std::optional<double> moonsetAfter(double julianDay, double latitude, double longitude, double sunset) {
    const auto height = [&](double hours) {
        return limbOverHorizon(Sky(julianDay + hours / 24.0, latitude, longitude));
    };
    if (height(sunset) <= 0.0) return std::nullopt;
    constexpr double step = 0.25, longest = 12.0;
    double up = sunset, down = sunset + step;
    while (height(down) > 0.0) {
        up = down;
        down += step;
        if (down > sunset + longest) return sunset + longest;
    }
    for (int i = 0; i < 14; ++i) (height(0.5 * (up + down)) > 0.0 ? up : down) = 0.5 * (up + down);
    return 0.5 * (up + down);
}

/// The part of the needed arc of vision that depends on the crescent's width, the same in both criteria.
double neededArc(double width) {
    return -6.3226 * width + 0.7319 * width * width - 0.1018 * width * width * width;
}

char zoneOf(double value, std::initializer_list<double> limits) {
    char zone = 'A';
    for (const double limit : limits) {
        if (value >= limit) return zone;
        ++zone;
    }
    return zone;
}

}  // namespace

std::optional<CrescentEvening> crescentEvening(double julianDay, double latitude, double longitude, double offset,
                                               double conjunction) {
    const SolarDay day(julianDay, latitude, longitude, offset, SunMoment::event);
    const auto sunset = day.atAltitude(-horizonDepression, SolarDay::Side::evening);
    if (!sunset) return std::nullopt;
    const auto moonset = moonsetAfter(julianDay, latitude, longitude, *sunset);
    if (!moonset) return std::nullopt;
    CrescentEvening evening;
    evening.julianDay = julianDay;
    evening.sunset = *sunset;
    evening.moonset = *moonset;
    evening.bestTime = *sunset + (*moonset - *sunset) * 4.0 / 9.0;
    const double best = julianDay + evening.bestTime / 24.0;
    evening.ageHours = (best - conjunction) * 24.0;
    const Sky sky(best, latitude, longitude);
    evening.arcOfLight = sky.arcOfLight();
    evening.arcOfVision = sky.moon.altitude - sky.sun.altitude;
    const double semidiameter = asinDeg(moonRadiusPerEarth * sinDeg(sky.parallax)) * 60.0;
    const double seen = semidiameter * (1.0 + sinDeg(sky.moon.altitude) * sinDeg(sky.parallax));
    evening.width = seen * (1.0 - cosDeg(evening.arcOfLight));
    evening.yallop = (evening.arcOfVision - (11.8371 + neededArc(evening.width))) / 10.0;
    const double topocentricArc = evening.arcOfVision - sky.parallax * cosDeg(sky.moon.altitude);
    evening.odeh = topocentricArc - (7.1651 + neededArc(evening.width));
    evening.yallopZone = zoneOf(evening.yallop, {0.216, -0.014, -0.160, -0.232, -0.293});
    evening.odehZone = zoneOf(evening.odeh, {5.65, 2.0, -0.96});
    return evening;
}

}  // namespace quode::conventions
