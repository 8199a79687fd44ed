// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <cmath>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/MoonPhases.h"
#include "astro/MoonTransit.h"
#include "astro/truth/comparison.h"

namespace quode::truth {
namespace {

// The largest allowed errors.
constexpr double phaseTolerance = 2.0;      // minutes
constexpr double riseTolerance = 1.5;       // minutes
constexpr double transitTolerance = 0.1;    // minutes
constexpr double preciseTolerance = 0.03;   // degrees; universal time is used as dynamical time
constexpr double fastTolerance = 0.1;       // degrees
constexpr double distanceTolerance = 20.0;  // km
constexpr double litTolerance = 0.5;        // percent

constexpr const char* usno = "USNO, phases of the Moon (whole minutes)";
constexpr const char* pyephem = "PyEphem 4.1.4, an independent ephemeris";

int whole(double x) {
    return static_cast<int>(x);
}

double julianDay(const std::vector<double>& row) {
    return AstroGlobalFuncs::CalculateJulianDay(whole(row[1]), whole(row[2]), whole(row[3]), whole(row[4]),
                                                whole(row[5]), 0);
}

double degreesApart(double a, double b) {
    return std::remainder(a - b, 360.0);
}
double minutesApart(double hours, double published) {
    return std::remainder((hours - published) * 60.0, 1440.0);
}

Comparison phases() {
    Comparison c{"phases of the Moon", "minutes", usno, phaseTolerance, {}};
    for (const auto& row : rowsOf("moon_phases")) {
        const double published = julianDay(row);
        double error = HUGE_VAL;
        for (const MoonPhase& phase : moonPhasesBetween(published - 1.0, published + 1.0)) {
            if (phase.phase == whole(row[0])) error = (phase.julianDay - published) * 1440.0;
        }
        c.errors.push_back(error);
    }
    return c;
}

Comparison litPartAtPhases() {
    Comparison c{"illuminated part at the published phases", "percent", usno, litTolerance, {}};
    constexpr double lit[] = {0.0, 50.0, 100.0, 50.0};
    for (const auto& row : rowsOf("moon_phases")) {
        const double T = (julianDay(row) - 2451545.0) / 36525.0;
        c.errors.push_back(100.0 * FastAstro::Phase(T) - lit[whole(row[0])]);
    }
    return c;
}

Comparison publishedRiseAndSet() {
    Comparison c{"moonrise and moonset",
                 "minutes",
                 "times announced for lunar eclipses; Duffett-Smith (whole minutes)",
                 riseTolerance,
                 {}};
    for (const auto& row : rowsOf("moon_rise_set_published")) {
        FastAstro engine;
        engine.SetPlace(row[1], row[2], row[3], 0, 0, 0, 0, 0, 0, 0);
        engine.MoonRiseTime(whole(row[6]), whole(row[5]), whole(row[4]));
        const double rise = engine.MoonRise();
        engine.MoonSetTime(whole(row[6]), whole(row[5]), whole(row[4]));
        const double local = (row[7] != 0.0 ? rise : engine.MoonSet()) + row[3];
        c.errors.push_back(minutesApart(local, row[8] + row[9] / 60.0));
    }
    return c;
}

std::vector<Comparison> riseTransitAndSet() {
    Comparison riseAndSet{"moonrise and moonset", "minutes", pyephem, riseTolerance, {}};
    Comparison transit{"transit of the Moon", "minutes", pyephem, transitTolerance, {}};
    for (const auto& row : rowsOf("moon_rise_set_ephemeris")) {
        FastAstro engine;
        engine.SetPlace(row[1], row[2], 0.0, 0, 0, 0, 0, 0, 0, 0);
        const VAKDate date = VAKDateMake(whole(row[5]), whole(row[4]), whole(row[3]), 0, 0, 0);
        engine.MoonRiseTime(date.Days, date.Months, date.Years);
        if (row[6] >= 0.0) riseAndSet.errors.push_back(minutesApart(engine.MoonRise(), row[6]));
        engine.MoonSetTime(date.Days, date.Months, date.Years);
        if (row[8] >= 0.0) riseAndSet.errors.push_back(minutesApart(engine.MoonSet(), row[8]));
        if (row[7] >= 0.0) transit.errors.push_back(minutesApart(moonTransit(date, row[2], 0.0), row[7]));
    }
    return {riseAndSet, transit};
}

std::vector<Comparison> positions() {
    Comparison ra{"right ascension of the Moon", "degrees", pyephem, preciseTolerance, {}};
    Comparison dec{"declination of the Moon", "degrees", pyephem, preciseTolerance, {}};
    Comparison distance{"distance of the Moon", "km", pyephem, distanceTolerance, {}};
    Comparison fastRa{"right ascension of the Moon, fast", "degrees", pyephem, fastTolerance, {}};
    Comparison fastDec{"declination of the Moon, fast", "degrees", pyephem, fastTolerance, {}};
    Comparison lit{"illuminated part of the Moon", "percent", pyephem, litTolerance, {}};
    for (const auto& row : rowsOf("moon_positions_ephemeris")) {
        FastAstro engine;
        engine.MoonDecRAAccurate(row[0]);
        ra.errors.push_back(degreesApart(engine.MoonRA() * 15.0, row[1] * 15.0));
        dec.errors.push_back(engine.MoonDec() - row[2]);
        distance.errors.push_back(engine.MoonDist() - row[3]);
        engine.MoonDecRA(row[0]);
        fastRa.errors.push_back(degreesApart(engine.MoonRA() * 15.0, row[1] * 15.0));
        fastDec.errors.push_back(engine.MoonDec() - row[2]);
        lit.errors.push_back(100.0 * FastAstro::Phase((row[0] - 2451545.0) / 36525.0) - row[4]);
    }
    return {ra, dec, distance, fastRa, fastDec, lit};
}

}  // namespace

std::vector<Comparison> moonComparisons() {
    std::vector<Comparison> all = positions();
    for (const Comparison& c : {litPartAtPhases(), phases(), publishedRiseAndSet()}) all.push_back(c);
    for (const Comparison& c : riseTransitAndSet()) all.push_back(c);
    return all;
}

}  // namespace quode::truth
