// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Many days or places at once. A revision that has no bulk interface computes them one by one, so that the same cases
// measure both.
#pragma once

#include <span>
#include <vector>

#include "astro/MagneticVariation.h"
#include "data/city_day.h"
#if __has_include("data/city_days.h")
#include "data/city_days.h"
#define QUODE_BENCH_BULK 1
#endif

namespace quode {

inline constexpr double benchHeight = 500.0;  // metres

#ifdef QUODE_BENCH_BULK

inline std::vector<CityDay> timesOfDays(const Site& site, std::span<const VAKDate> days) {
    std::vector<CityDay> results(days.size());
    CityDays series;
    for (std::size_t i = 0; i < days.size(); ++i) series.computeTimes(site, days[i], results[i]);
    return results;
}

inline std::vector<CityDay> wholeDays(const Site& site, std::span<const VAKDate> days) {
    std::vector<CityDay> results(days.size());
    computeDays(site, days, results);
    return results;
}

inline std::vector<CityDay> wholeDay(std::span<const Site> sites, const VAKDate& day) {
    std::vector<CityDay> results(sites.size());
    computeDays(sites, day, results);
    return results;
}

inline double declinationAt(const VAKDate& day, double latitude, double longitude) {
    return MagneticVariation::declination(MagneticVariation::fieldAt(day.Days, day.Months, day.Years),
                                          MagneticVariation::termsAt(latitude, longitude, benchHeight));
}

inline std::vector<double> declinationsOfDays(const Site& site, std::span<const VAKDate> days) {
    const auto place = MagneticVariation::termsAt(site.latitude, site.longitude, benchHeight);
    std::vector<double> results;
    for (const VAKDate& day : days) {
        results.push_back(
            MagneticVariation::declination(MagneticVariation::fieldAt(day.Days, day.Months, day.Years), place));
    }
    return results;
}

inline std::vector<double> declinationsOfPlaces(std::span<const Site> sites, const VAKDate& day) {
    const auto field = MagneticVariation::fieldAt(day.Days, day.Months, day.Years);
    std::vector<MagneticVariation::Point> places;
    for (const Site& site : sites) places.push_back({site.latitude, site.longitude, benchHeight});
    std::vector<double> results(sites.size());
    MagneticVariation::declinations(field, places, results);
    return results;
}

#else

inline std::vector<PrayTimes> timesOfDays(const Site& site, std::span<const VAKDate> days) {
    std::vector<PrayTimes> results;
    FastAstro engine;
    for (const VAKDate& day : days) {
        engine.SetCurrentDateTime(day);
        engine.SetPlace(site.latitude, site.longitude, site.rule.gmt, 0, 0, 0, 0, 0, 0.0, site.temkin ? 1 : 0);
        results.push_back(engine.CalculatePrayTimes().TodayPrayTimes);
    }
    return results;
}

inline std::vector<CityDay> wholeDays(const Site& site, std::span<const VAKDate> days) {
    std::vector<CityDay> results;
    for (const VAKDate& day : days) results.push_back(computeCityDay(site, day));
    return results;
}

inline std::vector<CityDay> wholeDay(std::span<const Site> sites, const VAKDate& day) {
    std::vector<CityDay> results;
    for (const Site& site : sites) results.push_back(computeCityDay(site, day));
    return results;
}

inline double declinationAt(const VAKDate& day, double latitude, double longitude) {
    return MagneticVariation().getMagneticVariation(day.Days, day.Months, day.Years, latitude, longitude, benchHeight);
}

inline std::vector<double> declinationsOfDays(const Site& site, std::span<const VAKDate> days) {
    std::vector<double> results;
    for (const VAKDate& day : days) results.push_back(declinationAt(day, site.latitude, site.longitude));
    return results;
}

inline std::vector<double> declinationsOfPlaces(std::span<const Site> sites, const VAKDate& day) {
    std::vector<double> results;
    for (const Site& site : sites) results.push_back(declinationAt(day, site.latitude, site.longitude));
    return results;
}

#endif

}  // namespace quode
