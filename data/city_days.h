// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Many days of one place, or many places on one day. Each result is, bit for bit, what `computeCityDay` gives for that
// day and place alone; what they share is computed once.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "astro/MagneticVariation.h"
#include "data/city_day.h"

namespace quode {

/// Computes days one after the other, in any order of days and places. It remembers what neighbouring days and places
/// share: the days of a place in the order of the calendar, or many places of one day, take the least time.
/// Nothing is allocated per day. Use an object from one thread at a time; several threads each have their own.
class CityDays {
  public:
    CityDays();

    /// A whole day.
    void compute(const Site& site, const VAKDate& day, CityDay& result);

    /// Only the date, the prayer times, the clock and the qibla of a day; the rest of the record stays as it is.
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

/// The days from one to another, both included, in the order of the calendar; none when `to` lies before `from`.
std::vector<VAKDate> daysBetween(const VAKDate& from, const VAKDate& to);

/// The days of a place from one to another, both included.
std::vector<CityDay> computeDays(const Site& site, const VAKDate& from, const VAKDate& to);

/// Days of a place, in any order. `results` has a record for each day.
void computeDays(const Site& site, std::span<const VAKDate> days, std::span<CityDay> results);

/// Only what `CityDays::computeTimes` gives of days of a place.
void computeDayTimes(const Site& site, std::span<const VAKDate> days, std::span<CityDay> results);

/// One day of many places. `results` has a record for each site.
void computeDays(std::span<const Site> sites, const VAKDate& day, std::span<CityDay> results);

}  // namespace quode
