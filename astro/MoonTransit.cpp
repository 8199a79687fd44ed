// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/MoonTransit.h"

#include <cmath>

#include "astro/AstroGlobalFuncs.h"
#include "astro/MoonCompute.h"
#include "astro/MoonPhases.h"
#include "astro/SkyRecords.h"

namespace quode {
namespace {

constexpr double degreesPerDay = 347.81;  // mean growth of the Moon's hour angle

/// Mean sidereal time at Greenwich, degrees, not reduced. Source: J. Meeus, Astronomical Algorithms, (12.4).
double greenwichSiderealAngle(double julianDay) {
    const double days = julianDay - 2451545.0;
    const double T = days / 36525.0;
    return 280.46061837 + 360.98564736629 * days + 0.000387933 * T * T - T * T * T / 38710000.0;
}

/// Hour angle of the Moon, degrees in [0, 360). The Julian day is in universal time.
double hourAngle(double julianDay, double longitude) {
    const double year = 2000.0 + (julianDay - 2451544.5) / 365.25;
    double declination = 0.0, rightAscension = 0.0, distance = 0.0;
    MoonCompute::Moon_Coordinate(julianDay + deltaT(year) / 86400.0, declination, rightAscension, distance);
    return MoonCompute::PutIn360(greenwichSiderealAngle(julianDay) + longitude - 15.0 * rightAscension);
}

}  // namespace

double moonTransit(const VAKDate& date, double longitude, double zoneHours) {
    const double midnight =
        AstroGlobalFuncs::CalculateJulianDay(date.Years, date.Months, date.Days, 0, 0, 0) - zoneHours / 24.0;
    double days = (360.0 - hourAngle(midnight, longitude)) / degreesPerDay;
    // Each step divides the error by thirty or more; the first is at most an hour off.
    for (int step = 0; step < 6; ++step) {
        const double angle = hourAngle(midnight + days, longitude);
        days -= (angle > 180.0 ? angle - 360.0 : angle) / degreesPerDay;
    }
    return days >= 0.0 && days < 1.0 ? days * 24.0 : missingMoonTime;
}

}  // namespace quode
