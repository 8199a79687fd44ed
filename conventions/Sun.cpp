// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/Sun.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "astro/EarthCompute.h"
#include "astro/julian_day.h"
#include "conventions/degrees.h"

namespace quode::conventions {
namespace {

constexpr double j2000 = 2451545.0;
constexpr double daysPerCentury = 36525.0;
constexpr double secondsPerDay = 86400.0;

// Seconds, every fifth year from 1900 on.
constexpr int firstMeasured = 1900;
constexpr std::array measuredDeltaT = {-2.8, 3.9,  10.4, 17.3, 21.2, 23.6, 24.0, 23.9, 24.3, 26.8, 29.1, 31.1, 33.2,
                                       35.7, 40.2, 45.5, 50.5, 54.3, 56.9, 60.8, 63.8, 64.7, 66.1, 67.6, 69.4, 69.1};
constexpr double lastMeasured = firstMeasured + 5.0 * (measuredDeltaT.size() - 1);

/// Long-term parabola, seconds.
double parabola(double year) {
    const double u = (year - 1820.0) / 100.0;
    return -20.0 + 32.0 * u * u;
}

/// Nutation in longitude and in obliquity, degrees; the terms above a tenth of a second of arc.
struct Nutation {
    double longitude, obliquity;
};

Nutation nutation(double T) {
    const double node = 125.04452 - 1934.136261 * T;
    const double sun = 280.4665 + 36000.7698 * T;
    const double moon = 218.3165 + 481267.8813 * T;
    const double sunAnomaly = 357.5277 + 35999.0503 * T;
    const double moonAnomaly = 134.9630 + 477198.8674 * T;
    const double inLongitude = -17.1996 * sinDeg(node) - 1.3187 * sinDeg(2 * sun) - 0.2274 * sinDeg(2 * moon) +
                               0.2062 * sinDeg(2 * node) + 0.1426 * sinDeg(sunAnomaly) + 0.0712 * sinDeg(moonAnomaly) -
                               0.0517 * sinDeg(2 * sun + sunAnomaly);
    const double inObliquity =
        9.2025 * cosDeg(node) + 0.5736 * cosDeg(2 * sun) + 0.0977 * cosDeg(2 * moon) - 0.0895 * cosDeg(2 * node);
    return {inLongitude / 3600.0, inObliquity / 3600.0};
}

}  // namespace

double deltaT(double julianDay) {
    const double year = 2000.0 + (julianDay - j2000) / 365.25;
    if (year < firstMeasured) return parabola(year) + (measuredDeltaT.front() - parabola(firstMeasured));
    if (year >= lastMeasured) {
        // Changes to the parabola over a century.
        const double centuries = std::min(1.0, (year - lastMeasured) / 100.0);
        const double share = centuries * centuries;
        return (1.0 - share) * measuredDeltaT.back() + share * parabola(year);
    }
    const double steps = (year - firstMeasured) / 5.0;
    const auto index = static_cast<std::size_t>(steps);
    return measuredDeltaT[index] + (measuredDeltaT[index + 1] - measuredDeltaT[index]) * (steps - double(index));
}

SunPlace sunAt(double julianDay) {
    const double terrestrial = julianDay + deltaT(julianDay) / secondsPerDay;
    const double T = (terrestrial - j2000) / daysPerCentury;
    const auto [psi, epsilon] = nutation(T);
    const double fundamental = -0.09033 / 3600.0;  // from the dynamical ecliptic to the FK5 system
    const EarthCompute::Place earth = EarthCompute::place(terrestrial);
    const double aberration = -20.4898 / 3600.0 / earth.R;
    const double longitude = earth.L / radiansPerDegree + 180.0 + fundamental + psi + aberration;
    const double latitude = -earth.B / radiansPerDegree;
    const double obliquity = 23.4392911 - (46.8150 * T + 0.00059 * T * T - 0.001813 * T * T * T) / 3600.0 + epsilon;

    SunPlace sun;
    sun.declination =
        asinDeg(sinDeg(latitude) * cosDeg(obliquity) + cosDeg(latitude) * sinDeg(obliquity) * sinDeg(longitude));
    sun.rightAscension = circle(
        std::atan2(sinDeg(longitude) * cosDeg(obliquity) - std::tan(latitude * radiansPerDegree) * sinDeg(obliquity),
                   cosDeg(longitude)) /
        radiansPerDegree);
    const double days = julianDay - j2000, century = days / daysPerCentury;
    const double sidereal = 280.46061837 + 360.98564736629 * days + 0.000387933 * century * century -
                            century * century * century / 38710000.0 + psi * cosDeg(obliquity);
    const double universalHours = 24.0 * (julianDay + 0.5 - std::floor(julianDay + 0.5));
    const double equation = circle(sidereal - sun.rightAscension - 15.0 * (universalHours - 12.0) + 180.0) - 180.0;
    sun.equationOfTime = equation / 15.0;
    return sun;
}

double julianDayOf(int year, int month, int day) {
    using namespace std::chrono;
    const sys_days date =
        year_month_day(std::chrono::year(year), std::chrono::month(unsigned(month)), std::chrono::day(unsigned(day)));
    return julianDayOfUnixEpoch + double(date.time_since_epoch().count());
}

}  // namespace quode::conventions
