// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/city_days.h"

#include <algorithm>
#include <array>
#include <limits>
#include <tuple>

#include "common/civil_date.h"
#include "data/day_engine.h"

namespace quode {
namespace {

constexpr double noPlace = std::numeric_limits<double>::quiet_NaN();  // compares unequal to everything

VAKDate dayAfter(const VAKDate& day) {
    VAKDate next = VAKDateMake(day.Days + 1, day.Months, day.Years, 0, 0, 0);
    if (next.Years == 1582 && next.Months == 10 && next.Days == 5) next.Days = 15;  // the calendar skipped ten days
    if (next.Days <= daysInMonth(next.Years, next.Months)) return next;
    return next.Months < 12 ? VAKDateMake(1, next.Months + 1, next.Years, 0, 0, 0)
                            : VAKDateMake(1, 1, next.Years + 1, 0, 0, 0);
}

void setDeclinations(std::span<const Site> sites, const VAKDate& day, std::span<CityDay> results) {
    constexpr std::size_t most = 64;
    const auto field = MagneticVariation::fieldAt(day.Days, day.Months, day.Years);
    std::array<MagneticVariation::Point, most> points;
    std::array<double, most> declinations;
    for (std::size_t first = 0; first < sites.size(); first += most) {
        const std::size_t count = std::min(most, sites.size() - first);
        for (std::size_t i = 0; i < count; ++i) {
            points[i] = {sites[first + i].latitude, sites[first + i].longitude, declinationHeight};
        }
        MagneticVariation::declinations(field, std::span(points).first(count), declinations);
        for (std::size_t i = 0; i < count; ++i) results[first + i].declination = declinations[i];
    }
}

bool isAfter(const VAKDate& a, const VAKDate& b) {
    return std::tie(a.Years, a.Months, a.Days) > std::tie(b.Years, b.Months, b.Days);
}

}  // namespace

CityDays::CityDays() : memo_(std::make_unique<SkyMemo>()), termsLatitude_(noPlace), termsLongitude_(noPlace) {
    engine_.share(memo_.get());
    engine_.setTimesOnly(true);
}

void CityDays::compute(const Site& site, const VAKDate& day, CityDay& result) {
    computeTimesAndSky(site, day, result);
    result.declination = declination(site, day);
}

void CityDays::computeTimesAndSky(const Site& site, const VAKDate& day, CityDay& result) {
    computeTimes(site, day, result);
    result.sky = withLocalSun(engine_.getSomeInfoForQuodeWidget(), result.GMTValue);
}

void CityDays::computeTimes(const Site& site, const VAKDate& day, CityDay& result) {
    setEngine(engine_, site, day);
    quode::computeTimes(engine_, site, result);
}

double CityDays::declination(const Site& site, const VAKDate& day) {
    if (!sameDay(fieldDay_, day)) {
        field_ = MagneticVariation::fieldAt(day.Days, day.Months, day.Years);
        fieldDay_ = day;
    }
    if (termsLatitude_ != site.latitude || termsLongitude_ != site.longitude) {
        terms_ = MagneticVariation::termsAt(site.latitude, site.longitude, declinationHeight);
        termsLatitude_ = site.latitude;
        termsLongitude_ = site.longitude;
    }
    return MagneticVariation::declination(field_, terms_);
}

std::vector<VAKDate> daysBetween(const VAKDate& from, const VAKDate& to) {
    std::vector<VAKDate> days;
    for (VAKDate day = VAKDateMake(from.Days, from.Months, from.Years, 0, 0, 0); !isAfter(day, to);
         day = dayAfter(day)) {
        days.push_back(day);
    }
    return days;
}

std::vector<CityDay> computeDays(const Site& site, const VAKDate& from, const VAKDate& to) {
    const std::vector<VAKDate> days = daysBetween(from, to);
    std::vector<CityDay> results(days.size());
    computeDays(site, days, results);
    return results;
}

void computeDays(const Site& site, std::span<const VAKDate> days, std::span<CityDay> results) {
    CityDays series;
    for (std::size_t i = 0; i < days.size(); ++i) series.compute(site, days[i], results[i]);
}

void computeDayTimes(const Site& site, std::span<const VAKDate> days, std::span<CityDay> results) {
    CityDays series;
    for (std::size_t i = 0; i < days.size(); ++i) series.computeTimes(site, days[i], results[i]);
}

void computeDays(std::span<const Site> sites, const VAKDate& day, std::span<CityDay> results) {
    CityDays series;
    for (std::size_t i = 0; i < sites.size(); ++i) series.computeTimesAndSky(sites[i], day, results[i]);
    setDeclinations(sites, day, results);
}

}  // namespace quode
