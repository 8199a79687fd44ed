// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Places of the Sun, the equation of time, altitude, azimuth and refraction.
#include <algorithm>
#include <cmath>

#include "astro/EarthCompute.h"
#include "astro/FastAstro.h"
#include "astro/SunMoments.h"
#include "astro/SunSeries.h"
#include "astro/angles.h"

namespace quode {
namespace {

double aberrationAndNutation(double node) {
    return -0.005690000019967556 - 0.004780000075697899 * sinDeg(node);
}

double obliquity(double T, double node) {
    return 23.433332443237305 +
           (21.447999954223633 - 46.814998626708984 * T - 0.000590000010561198 * T * T +
            0.0018129999516531825 * T * T * T) /
               3600.0 +
           0.0025599999353289604 * cosDeg(node);
}

struct Equatorial {
    double declination;     // degrees
    double rightAscension;  // hours
};

Equatorial equatorialOfSun(double longitude, double obliquityDegrees) {
    const double sinLongitude = sinDeg(longitude);
    const double declination = std::asin(sinDeg(obliquityDegrees) * sinLongitude) * degreesPerRadian;
    double angle = std::atan2(cosDeg(obliquityDegrees) * sinLongitude, cosDeg(longitude)) * degreesPerRadian;
    if (angle < 0.0) angle += 360.0;
    return {declination, angle / 15.0};
}

/// The arguments shared by the obliquity and the nutation in longitude, degrees.
struct NutationArguments {
    double node, sun, moon;
};

NutationArguments nutationArguments(double T) {
    return {125.04451751708984 - 1934.13623046875 * T + 0.0020707999356091022 * T * T + T * T * T / 450000.0,
            FastAstro::SunL(T), 218.31649780273438 + 481267.875 * T};
}

}  // namespace

void FastAstro::SunDecRA(double julianDay) {
    const SunMoment sun = sunMomentAt(julianDay);
    EclipticLongitude_ = sun.eclipticLongitude;
    SunDec_ = sun.declination;
    SunRA_ = sun.rightAscension;
}

void FastAstro::SunDecRAAccurate(double julianDay) {
    const auto [L, B, R] = EarthCompute::place(julianDay);
    double longitude = std::atan2(-R * std::cos(B) * std::sin(L), -R * std::cos(B) * std::cos(L)) * degreesPerRadian;
    if (longitude < 0.0) longitude += 360.0;
    const double T = centuriesFromJ2000(julianDay);
    const double node = lunarNode(T);
    longitude += aberrationAndNutation(node);
    const Equatorial sun = equatorialOfSun(longitude, obliquity(T, node));
    SunDistance_ = R;
    SunDec_ = sun.declination;
    SunRA_ = sun.rightAscension;
}

double FastAstro::SunL(double T) {
    const double tau = T / 10.0;
    const double tau2 = tau * tau, tau3 = tau2 * tau, tau4 = tau3 * tau, tau5 = tau4 * tau;
    return fullCircle(280.4664611816406 + 360007.6875 * tau + 0.03032027930021286 * tau2 + tau3 / 49931.0 -
                      tau4 / 15299.0 + tau5 / 1988000.0);
}

double FastAstro::Epsilon(double T) {
    const auto [node, sun, moon] = nutationArguments(T);
    const double nutation = 9.199999809265137 * cosDeg(node) + 0.5699999928474426 * cosDeg(2.0 * sun) +
                            0.10000000149011612 * cosDeg(2.0 * moon) - 0.09000000357627869 * cosDeg(2.0 * node);
    return 23.43929100036621 -
           (46.814998626708984 * T + 0.000590000010561198 * T * T - 0.0018129999516531825 * T * T * T) / 3600.0 +
           nutation / 3600.0;
}

double FastAstro::DeltaPSI(double T) {
    const auto [node, sun, moon] = nutationArguments(T);
    return (-17.200000762939453 * sinDeg(node) - 1.3200000524520874 * sinDeg(2.0 * sun) -
            0.23000000417232513 * sinDeg(2.0 * fullCircle(moon)) + 0.20999999344348907 * sinDeg(2.0 * node)) /
           3600.0;
}

double FastAstro::EquationOfTime(double julianDay, double rightAscension) {
    // `SunL`, `DeltaPSI` and `Epsilon` together, because they share their arguments.
    const double T = centuriesFromJ2000(julianDay);
    const auto [node, sun, moon] = nutationArguments(T);
    const double cosNode2 = cosDeg(2.0 * node), sinNode2 = sinDeg(2.0 * node);
    const double cosSun2 = cosDeg(2.0 * sun), sinSun2 = sinDeg(2.0 * sun);
    const double nutation = 9.199999809265137 * cosDeg(node) + 0.5699999928474426 * cosSun2 +
                            0.10000000149011612 * cosDeg(2.0 * moon) - 0.09000000357627869 * cosNode2;
    const double epsilon =
        23.43929100036621 -
        (46.814998626708984 * T + 0.000590000010561198 * T * T - 0.0018129999516531825 * T * T * T) / 3600.0 +
        nutation / 3600.0;
    const double deltaPsi = (-17.200000762939453 * sinDeg(node) - 1.3200000524520874 * sinSun2 -
                             0.23000000417232513 * sinDeg(2.0 * fullCircle(moon)) + 0.20999999344348907 * sinNode2) /
                            3600.0;
    double equation = sun - 0.0057183001190423965 - 15.0 * rightAscension + deltaPsi * cosDeg(epsilon);
    if (equation > 5.0) equation -= 360.0;
    return 4.0 * equation;
}

double FastAstro::SunAltitude(double declination, double hourAngleOffset) const {
    return safeAsin(sinDeg(declination) * sinDeg(Lat_) +
                    cosDeg(declination) * cosDeg(Lat_) * cosDeg(Lon_ + hourAngleOffset)) *
           degreesPerRadian;
}

double FastAstro::SunAzimuth(double declination, double hourAngleOffset, double altitude) const {
    const double horizontal = cosDeg(altitude) * cosDeg(Lat_);
    if (std::abs(horizontal) < smallestHorizontal) return noDirection;
    // On the meridian, the rounding of the degree factors makes the sine exceed 1.
    const double x = std::clamp((sinDeg(declination) - sinDeg(Lat_) * sinDeg(altitude)) / horizontal, -1.0, 1.0);
    const double azimuth = (1.5707963705062866 - std::asin(x)) * degreesPerRadian;
    return sinDeg(Lon_ + hourAngleOffset) > 0.0 ? 360.0 - azimuth : azimuth;
}

double FastAstro::Refract(double altitude) {
    return realOr(0.0,
                  1.0199999809265137 / tanDeg(altitude + 10.300000190734863 / (altitude + 5.110000133514404)) / 60.0);
}

}  // namespace quode
