// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Many days of one place, or many places on one day. Each result equals that of `computeCityDay` bit for bit; shared
// values are computed once.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "astro/MagneticVariation.h"
#include "data/city_day.h"

namespace quode {

/// Computes days one after the other, in any order of days and places. It keeps the values that neighbouring days and
/// places share: it is fastest for the days of a place in chronological order, and for many places on one day. It
/// allocates nothing per day. Use an object from one thread at a time, and one object per thread.
///
/// @code
///   quode::CityDays days;
///   quode::CityDay day;
///   for (const quode::VAKDate& date :
///        quode::daysBetween(quode::VAKDateMake(1, 1, 2026, 0, 0, 0), quode::VAKDateMake(31, 12, 2026, 0, 0, 0))) {
///       days.compute(mecca, date, day);  // a quode::Site, see "data/city_day.h"
///   }
/// @endcode
class CityDays {
  public:
    CityDays();

    /// Computes a day.
    void compute(const Site& site, const VAKDate& day, CityDay& result);

    /// Computes the date, the prayer times, the clock and the qibla of a day; the rest of the record stays as it is.
    void computeTimes(const Site& site, const VAKDate& day, CityDay& result);

    /// A whole day but for the declination, which stays as it is: see `MagneticVariation::declinations`.
    void computeTimesAndSky(const Site& site, const VAKDate& day, CityDay& result);

  private:
    double declination(const Site& site, const VAKDate& day);

    std::unique_ptr<SkyMemo> memo_;
    FastAstro engine_;
    VAKDate fieldDay_;
    MagneticVariation::Field field_;
    double termsLatitude_, termsLongitude_;
    MagneticVariation::PlaceTerms terms_;
};

/// The days from one to another, both included, in chronological order; empty when `to` is before `from`.
std::vector<VAKDate> daysBetween(const VAKDate& from, const VAKDate& to);

/// Computes the days of a place from one to another, both included; empty when `to` is before `from`.
std::vector<CityDay> computeDays(const Site& site, const VAKDate& from, const VAKDate& to);

/// Computes days of a place, in any order.
/// @param results  as many as days
void computeDays(const Site& site, std::span<const VAKDate> days, std::span<CityDay> results);

/// The same with `CityDays::computeTimes`.
void computeDayTimes(const Site& site, std::span<const VAKDate> days, std::span<CityDay> results);

/// Computes one day of many places.
/// @param results  as many as sites
void computeDays(std::span<const Site> sites, const VAKDate& day, std::span<CityDay> results);

}  // namespace quode
