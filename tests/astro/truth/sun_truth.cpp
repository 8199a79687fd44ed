// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <cmath>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/truth/comparison.h"

namespace quode::truth {
namespace {

// The largest allowed errors.
constexpr double longitudeTolerance = 0.01;   // degrees
constexpr double positionTolerance = 0.0005;  // degrees
constexpr double distanceTolerance = 1000.0;  // km
constexpr double equationTolerance = 0.01;    // minutes
constexpr double siderealTolerance = 0.1;     // seconds
constexpr double riseTolerance = 2.0;         // minutes

constexpr double kilometresPerUnit = 149597870.7;
constexpr const char* meeus = "Meeus, Astronomical Algorithms, worked examples";

double julianDay(const std::vector<double>& row) {
    const auto n = [&](std::size_t i) { return static_cast<int>(row[i]); };
    return AstroGlobalFuncs::CalculateJulianDay(n(0), n(1), n(2), n(3), n(4), 0);
}

Comparison longitude() {
    Comparison c{"ecliptic longitude of the Sun", "degrees", "USNO, equinoxes and solstices", longitudeTolerance, {}};
    for (const auto& row : rowsOf("solar_longitude")) {
        FastAstro engine;
        engine.SunDecRA(julianDay(row));
        c.errors.push_back(std::remainder(engine.EclipticLongitude() - row[5], 360.0));
    }
    return c;
}

std::vector<Comparison> position() {
    Comparison ra{"right ascension of the Sun", "degrees", meeus, positionTolerance, {}};
    Comparison dec{"declination of the Sun", "degrees", meeus, positionTolerance, {}};
    Comparison equation{"equation of time", "minutes", meeus, equationTolerance, {}};
    for (const auto& row : rowsOf("solar_position")) {
        FastAstro engine;
        engine.SunDecRAAccurate(row[0]);
        ra.errors.push_back(engine.SunRA() * 15.0 - row[1]);
        dec.errors.push_back(engine.SunDec() - row[2]);
        equation.errors.push_back(FastAstro::EquationOfTime(row[0], engine.SunRA()) - row[4]);
    }
    return {ra, dec, equation};
}

Comparison distance() {
    Comparison c{"distance of the Sun", "km", "timeanddate.com, perihelion and aphelion", distanceTolerance, {}};
    for (const auto& row : rowsOf("sun_distance")) {
        FastAstro engine;
        engine.SunDecRAAccurate(julianDay(row));
        c.errors.push_back(engine.SunDistance() * kilometresPerUnit - row[5]);
    }
    return c;
}

Comparison siderealTime() {
    Comparison c{"mean sidereal time", "seconds", meeus, siderealTolerance, {}};
    for (const auto& row : rowsOf("sidereal_time")) {
        const double published = row[1] + row[2] / 60.0 + row[3] / 3600.0;
        c.errors.push_back((FastAstro::LM_Sidereal_Time(row[0], 0.0) - published) * 3600.0);
    }
    return c;
}

Comparison riseAndSet() {
    Comparison c{
        "sunrise and sunset", "minutes", "NREL/TP-560-34302; timeanddate.com (whole minutes)", riseTolerance, {}};
    for (const auto& row : rowsOf("sunrise")) {
        const auto n = [&](std::size_t i) { return static_cast<int>(row[i]); };
        FastAstro engine;
        engine.SetPlace(row[1], row[2], row[3], 0, 0, 0, 0, 0, 0, 0);
        engine.SunRiseSet(n(6), n(5), n(4));
        c.errors.push_back(std::remainder((engine.UTRise() + row[3]) * 60.0 - (row[7] * 60.0 + row[8]), 1440.0));
        c.errors.push_back(std::remainder((engine.UTSet() + row[3]) * 60.0 - (row[9] * 60.0 + row[10]), 1440.0));
    }
    return c;
}

}  // namespace

std::vector<Comparison> sunComparisons() {
    std::vector<Comparison> all = position();
    for (const auto& make : {longitude, distance, siderealTime, riseAndSet}) all.push_back(make());
    return all;
}

}  // namespace quode::truth
