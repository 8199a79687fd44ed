// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// One day at one place: its prayer times, sky, qibla and clock, computed afresh.
#pragma once

#include <chrono>
#include <optional>

#include "astro/FastAstro.h"
#include "common/prayer.h"
#include "data/City.h"
#include "data/CityDatabase.h"
#include "data/SiteChoice.h"
#include "data/day_method.h"
#include "data/zone_days.h"

namespace quode {

/// What the times of a place depend on.
struct Site {
    double latitude = 0.0;   ///< degrees, north positive
    double longitude = 0.0;  ///< degrees, east positive
    ZoneRule rule;
    bool temkin = true;                               ///< safety margin for 500 m of height; 250 m otherwise
    SiteChoice choice = {};                           ///< the method and table that the user chose
    std::shared_ptr<const ZoneKnowledge> known = {};  ///< what is known of the clock beyond the rule

    ZoneClock clock() const { return {rule, known}; }

    friend bool operator==(const Site& a, const Site& b) {
        return a.latitude == b.latitude && a.longitude == b.longitude && a.temkin == b.temkin && a.choice == b.choice &&
               a.clock() == b.clock();
    }
};

Site siteOf(const CityRecord& city);

/// The site of a city as the databases hold it, in texts; what is no number counts as 0. Its clock is that of the day
/// for which the city was read.
Site siteOf(const City& city);

/// Everything that is computed for one day at one place.
struct CityDay {
    VAKDate date;              ///< the civil day, at 0 h
    PrayTimes times;           ///< local decimal hours, -1.0 where there is none; the flags tell the fallbacks
    WidgetSkyInfo sky;         ///< sunrise, sunset, moonrise, moonset (local), the Moon's altitude at sunset
    double GMTValue = 0.0;     ///< hours east of Greenwich on that day, summer time included
    bool isDSTTime = false;    ///< summer time is in force
    KiblePair kible;           ///< the qibla, see `FastAstro::KibleAcisi`
    double declination = 0.0;  ///< magnetic declination, degrees east of true north
    DayMethod method;          ///< how the times came about
};

/// Computes a day, by the offset that the place's clock has at its noon. Only the date of `day` counts.
CityDay computeCityDay(const Site& site, const VAKDate& day);

/// Computes the day of `day` and stores the results in the city: times, sky, offset text, qibla, declination.
void computeCity(City& city, const VAKDate& day);

/// The time of a prayer, by its code 200 to 208, in local hours; -1.0 when there is none.
double timeOfPrayer(const PrayTimes& times, int code);

/// The same, counted from 0 h of the day itself: its noon lies within 0..24. The engine's own hours of a day reach a
/// day too far where the clock is one day ahead of the longitude, as in Samoa, Tonga and the Line Islands.
double timeOfPrayer(const CityDay& day, int code);

/// The local minute that a time is shown as, in minutes after 0 h of its day; 1440 and more belong to the next day.
/// Rounds exactly as `timeLeadingZero` does.
int shownMinute(double hours);

/// The instant of a time of a day, to the minute at which it is shown.
std::chrono::sys_seconds instantOf(const CityDay& day, double hours);

/// The wall clock of a place at an instant. Where only the days of changes are known, the clocks change at two o'clock
/// standard time; the prayer times count the whole of such a day as the time at its noon.
VAKDate wallClock(const ZoneClock& clock, std::chrono::sys_seconds instant);

/// A coming prayer.
struct NextPrayer {
    int code = 0;                        ///< 200 (Imsak) to 205 (Yatsi)
    std::chrono::sys_seconds instant{};  ///< when, to the minute
    double hours = 0.0;                  ///< the local time of its day
    VAKDate date;                        ///< the civil day that the time belongs to, at 0 h
};

/// The first of the six main times after an instant, of yesterday (a night prayer after midnight), today or tomorrow.
/// Nothing when none of them exists.
std::optional<NextPrayer> nextPrayer(const Site& site, std::chrono::sys_seconds now);

}  // namespace quode
