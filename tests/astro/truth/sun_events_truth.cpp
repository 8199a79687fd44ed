// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The engine's Sun, its events and the default method's times, compared with an ephemeris fitted to JPL's.
#include <array>
#include <cmath>
#include <tuple>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/truth/comparison.h"

namespace quode::truth {
namespace {

constexpr const char* ephemeris = "ERFA 2.0, an ephemeris fitted to JPL DE405";
constexpr double minutesPerHour = 60.0;

// The largest allowed errors.
constexpr double placeTolerance = 0.002;    // degrees
constexpr double equationTolerance = 0.02;  // minutes
constexpr double noonTolerance = 0.5;       // minutes

std::vector<Comparison> places() {
    Comparison rightAscension{"right ascension of the Sun, 1975 to 2035", "degrees", ephemeris, placeTolerance, {}};
    Comparison declination{"declination of the Sun, 1975 to 2035", "degrees", ephemeris, placeTolerance, {}};
    Comparison equation{"equation of time, 1975 to 2035", "minutes", ephemeris, equationTolerance, {}};
    for (const auto& row : rowsOf("sun_places")) {
        FastAstro engine;
        engine.SunDecRAAccurate(row[0]);
        rightAscension.errors.push_back(std::remainder(engine.SunRA() * 15.0 - row[4], 360.0));
        declination.errors.push_back(engine.SunDec() - row[2]);
        equation.errors.push_back(FastAstro::EquationOfTime(row[0], engine.SunRA()) - row[3] * minutesPerHour);
    }
    return {rightAscension, declination, equation};
}

/// A band of latitudes, north and south alike. Towards the poles the Sun crosses an altitude ever more slowly.
struct Band {
    double low, high;
    const char* name;
    double riseTolerance = 1.0, prayerTolerance = 1.0;  // minutes
};
constexpr std::array bands = {Band{0.0, 25.0, "latitude 0 to 25"}, Band{25.0, 45.0, "latitude 25 to 45"},
                              Band{45.0, 60.0, "latitude 45 to 60"}, Band{60.0, 66.0, "latitude 60 to 66", 5.0, 1.5},
                              Band{66.0, 72.0, "latitude 66 to 72", 10.0, 1.5}};

struct BandComparisons {
    Comparison rise, noon, civil, nautical, twilight, prayers;
};

BandComparisons emptyFor(const Band& band) {
    const std::string at = std::string(", ") + band.name;
    return {{"sunrise and sunset" + at, "minutes", ephemeris, band.riseTolerance, {}},
            {"noon" + at, "minutes", ephemeris, noonTolerance, {}},
            {"Sun 6 degrees below the horizon" + at, "minutes", ephemeris, band.prayerTolerance, {}},
            {"Sun 12 degrees below the horizon" + at, "minutes", ephemeris, band.prayerTolerance, {}},
            {"Sun 18 degrees below the horizon" + at, "minutes", ephemeris, band.prayerTolerance, {}},
            {"times of the default method before their margin" + at, "minutes", ephemeris, band.prayerTolerance, {}}};
}

double difference(double hours, double published) {
    return std::remainder(hours - published, 24.0) * minutesPerHour;
}

/// The columns of a row.
enum Column : std::size_t {
    latitude = 3,
    longitude,
    rise,
    set,
    transit,
    dawn18,
    dusk18,
    dawn19,
    rise0,
    asr1,
    asr2,
    set0,
    dusk17,
    dawn12,
    dusk12,
    dawn6,
    dusk6
};

/// Where the ephemeris has no such event, there is nothing to compare.
void compare(Comparison& comparison, double hours, double published) {
    if (!std::isnan(published)) comparison.errors.push_back(difference(hours, published));
}

void compareEvents(const std::vector<double>& row, BandComparisons& band) {
    const auto n = [&](std::size_t i) { return static_cast<int>(row[i]); };
    FastAstro engine;
    engine.SetCurrentDate(n(2), n(1), n(0));
    engine.SetPlace(row[latitude], row[longitude], 0.0, 0, 0, 0, 0, 0, 0, 0);
    engine.SunRiseSet(n(2), n(1), n(0));
    compare(band.rise, engine.UTRise(), row[rise]);
    compare(band.rise, engine.UTSet(), row[set]);
    const PrayTimes times = engine.CalculatePrayTimes().TodayPrayTimes;
    const SunInfoForPray sun = engine.SunInformationForPray(n(2), n(1), n(0));
    const double clock = std::round(row[longitude] / 15.0);
    const auto add = [&](Comparison& comparison, int angle, int side, Column column) {
        if (std::isnan(row[column])) return;
        double hours = 0.0;
        // On the clock of the place.
        FastAstro::Iterasyon(hours, row[latitude], row[longitude] / -15.0, 0.0, clock, angle, side, sun);
        compare(comparison, hours - clock, row[column]);
    };
    add(band.civil, -6, -1, dawn6);
    add(band.civil, -6, 1, dusk6);
    add(band.nautical, -12, -1, dawn12);
    add(band.nautical, -12, 1, dusk12);
    add(band.twilight, -18, -1, dawn18);
    add(band.twilight, -18, 1, dusk18);
    for (const auto& [angle, side, column] :
         {std::tuple{-19, -1, dawn19}, std::tuple{0, -1, rise0}, std::tuple{1, 1, asr1}, std::tuple{2, 1, asr2},
          std::tuple{0, 1, set0}, std::tuple{-17, 1, dusk17}}) {
        add(band.prayers, angle, side, column);
    }
    const double margin = FastAstro::Temkin(row[latitude], false);
    compare(band.noon, times.Ogle - margin, row[transit]);
}

}  // namespace

std::vector<Comparison> sunEventComparisons() {
    std::vector<Comparison> all = places();
    const auto rows = rowsOf("sun_events");
    for (const Band& band : bands) {
        BandComparisons comparisons = emptyFor(band);
        for (const auto& row : rows) {
            const double off = std::abs(row[latitude]);
            if (off >= band.low && off < band.high) compareEvents(row, comparisons);
        }
        for (Comparison* each : {&comparisons.rise, &comparisons.noon, &comparisons.civil, &comparisons.nautical,
                                 &comparisons.twilight, &comparisons.prayers}) {
            all.push_back(std::move(*each));
        }
    }
    return all;
}

}  // namespace quode::truth
