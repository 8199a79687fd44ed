// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// One day at one place: its prayer times, sky, qibla and clock.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "astro/FastAstro.h"
#include "astro/prayer.h"
#include "data/City.h"
#include "data/CityDatabase.h"
#include "data/SiteChoice.h"
#include "data/day_method.h"
#include "data/zone_clock.h"

namespace quode {

/// The facts of a place that its times depend on.
struct Site {
    double latitude = 0.0;   ///< degrees, north positive
    double longitude = 0.0;  ///< degrees, east positive
    ZoneRule rule;
    bool temkin = true;                               ///< safety margin for 500 m of height; 250 m otherwise
    SiteChoice choice = {};                           ///< the method and table that the user chose
    std::shared_ptr<const ZoneKnowledge> known = {};  ///< facts of the clock beyond the rule
    std::string country = {};  ///< ISO 3166-1 alpha-2 code, of a point that of the nearest place; empty: unknown

    /// The place's clock: the rule with all facts beyond it.
    ZoneClock clock() const { return {rule, known}; }

    /// Whether all times are equal; the country changes none.
    friend bool operator==(const Site& a, const Site& b) {
        return a.latitude == b.latitude && a.longitude == b.longitude && a.temkin == b.temkin && a.choice == b.choice &&
               a.clock() == b.clock();
    }
};

/// The site of a place of the city database.
Site siteOf(const CityRecord& city);

/// The site of a city with its facts as texts; a text without a number counts as 0. Its clock is that of the day on which
/// the city was read.
Site siteOf(const City& city);

/// The computed values of one day at one place.
struct CityDay {
    VAKDate date;              ///< the civil day, at 0 h
    PrayTimes times;           ///< as the engine gives them, -1.0 where missing; see `timeOfPrayer`
    WidgetSkyInfo sky;         ///< sunrise, sunset, moonrise, moonset (local), the Moon's altitude at sunset
    double GMTValue = 0.0;     ///< hours east of Greenwich on that day, summer time included
    bool isDSTTime = false;    ///< summer time is in force
    KiblePair kible;           ///< the qibla, see `FastAstro::KibleAcisi`
    double declination = 0.0;  ///< magnetic declination, degrees east of true north
    DayMethod method;          ///< how the times were computed
};

/// Computes a day with the offset of the place's clock at noon. Nothing throws.
///
/// @code
///   quode::Site mecca;
///   mecca.latitude = 21.4225;
///   mecca.longitude = 39.8262;
///   mecca.rule.gmt = 3.0;
///   const quode::CityDay day = quode::computeCityDay(mecca, quode::VAKDateMake(21, 3, 2026, 0, 0, 0));
///   if (const auto fajr = quode::timeOfPrayer(day, 200)) {  // local decimal hours
///       const int minute = quode::shownMinute(*fajr);       // as shown, after rounding
///   }
/// @endcode
///
/// @param day  the date; its time of day is ignored
CityDay computeCityDay(const Site& site, const VAKDate& day);

/// Computes a day and stores the results in the city: times, sky, text of the offset, qibla, declination.
/// @param day  the date; its time of day is ignored
void computeCity(City& city, const VAKDate& day);

/// The time of a prayer. Here the engine's mark of a missing time ends: what uses a day receives an optional.
/// @param code  200 to 208
/// @return local hours; nothing for a missing time and for any other code
std::optional<double> timeOfPrayer(const PrayTimes& times, int code);

/// The same, counted from 0 h of the day, so that noon is within 0..24. The engine's hours are a day too large where the
/// clock is one day ahead of the longitude, as in Samoa, Tonga and the Line Islands.
std::optional<double> timeOfPrayer(const CityDay& day, int code);

/// Rise and set of Sun and Moon in local hours, and the Moon's altitude at sunset in degrees; nothing where there is none.
struct SkyTimes {
    std::optional<double> sunrise, sunset, moonrise, moonset;
    std::optional<double> moonAltitudeAtSunset;
};

/// The times of the sky of a day, without the engine's marks.
SkyTimes skyTimes(const CityDay& day);

/// The minute at which a time is shown, rounded as by `timeLeadingZero`.
/// @param hours  local hours
/// @return minutes after 0 h of the day; from 1440 on in the next day
int shownMinute(double hours);

/// The instant of a time of a day, rounded to the minute at which it is shown.
std::chrono::sys_seconds instantOf(const CityDay& day, double hours);

/// The wall clock of a place at an instant. Prayer times use the offset at noon for the whole of a day on which the clocks
/// change.
VAKDate wallClock(const ZoneClock& clock, std::chrono::sys_seconds instant);

/// What the clock shows at a time of a day on which it changes, where that is not the time itself.
/// @param hours  local hours; nothing for a missing time
/// @return minutes after 0 h of the day; nothing when the clock shows the time
std::optional<int> otherClockMinute(const ZoneClock& clock, const CityDay& day, std::optional<double> hours);

/// The next prayer.
struct NextPrayer {
    int code = 0;                        ///< 200 (Imsak) to 205 (Yatsi)
    std::chrono::sys_seconds instant{};  ///< its time, to the minute
    double hours = 0.0;                  ///< local hours of `date`
    VAKDate date;                        ///< the civil day of the prayer, at 0 h
};

/// The first of the six main times after an instant, of yesterday (a night prayer after midnight), today or tomorrow;
/// nothing when none of them exists.
std::optional<NextPrayer> nextPrayer(const Site& site, std::chrono::sys_seconds now);

}  // namespace quode
