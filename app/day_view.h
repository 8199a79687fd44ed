// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the commands show of a day, in texts and in JSON.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "app/json.h"
#include "app/place.h"
#include "astro/MagneticVariation.h"
#include "data/city_day.h"
#include "data/fallbacks.h"
#include "data/night_parts.h"
#include "data/qibla.h"
#include "data/zone_check.h"

namespace quode::app {

class Session;

/// The names of the prayers 200 to 208 in JSON and CSV.
std::string prayerKey(int code);

// --- times
/// A time of day as the locale shows it, or with seconds; "--:--" when there is none.
std::string clockText(Session& session, std::optional<double> hours, bool withSeconds = false);
/// The same of a minute after 0 h of a day, which may be one of a neighbouring day.
std::string clockText(Session& session, std::chrono::minutes minute);
/// "05:43", with 24 hours whatever the locale.
std::string clock24(double hours);
std::string clock24(std::chrono::minutes minute);
/// {"time": "05:43", "hours": 5.7163}, always with 24 hours; null when there is none.
Json timeJson(std::optional<double> hours);
/// The same of rise and set of Sun and Moon, with hours below 24.
Json skyTimeJson(std::optional<double> hours);
/// Degrees and minutes of the Moon's altitude at sunset; "--:--" when there is no sunset.
std::string altitudeText(std::optional<double> degrees);
/// "2 h 13 min", rounded up to the minute, as the difference of two clock texts is.
std::string durationText(std::chrono::seconds duration);

/// "First third", "Midnight", "Last third".
std::string nightPartLabel(const NightPartName& part);
/// The time of a part of the night that begins on a day; nothing when dawn or sunset is missing.
std::optional<double> nightHours(const CityDay& day, double NightParts::*part);
/// {"first_third": ..., "midnight": ..., "last_third": ...} of the night that begins on a day.
Json nightJson(const CityDay& day);

// --- dates
/// The present day of a place.
VAKDate today(Session& session, const Site& site);
std::string longDate(Session& session, const VAKDate& date);
std::string dayAndMonth(Session& session, std::chrono::year_month_day date);
/// The first change of a clock from a day to another; nothing when there is none.
std::optional<ClockChange> clockChangeBetween(const ZoneClock& clock, const VAKDate& first, const VAKDate& last);
/// "clocks go forward on 28 March 2027"
std::string clockChangeText(Session& session, const ClockChange& change);
/// The Hijri date by the table; nothing outside it.
std::optional<VAKDate> hijriByTable(const VAKDate& date);
std::string hijriText(Session& session, const VAKDate& hijri);
Json hijriJson(Session& session, const std::optional<VAKDate>& hijri, const char* calendar);

// --- the sky
Json skyJson(const CityDay& day);

/// The instant of a time of a day as text; null when there is none, or when the day is of the Julian calendar.
Json instantJson(const CityDay& day, std::optional<double> hours);

/// The model of the Earth's magnetic field, by its name.
inline constexpr const char* magneticModel = "IGRF-11";

Json qiblaJson(const CityDay& day);
Json declinationJson(const CityDay& day);

// --- fallbacks
/// The latitude for which the times were computed; nothing when it is the place's own.
std::optional<double> computedLatitude(const PrayTimes& times);
/// The same, also of a day by another method than the engine's.
std::optional<double> computedLatitude(const CityDay& day);

/// "The Sun does not both rise and set here ...": the note for times that were computed for another latitude.
/// @param lowest,highest  degrees: the latitudes that were used
std::string latitudeNote(Session& session, double lowest, double highest);

/// "The Sun does not sink 19° below the horizon ...": the note for a dawn or night time of an earlier day.
std::string earlierDayNote(int code);

/// Explanations below a table, numbered in the order in which they are needed.
class Footnotes {
  public:
    // The mark of a time, such as "¹"; empty when it does not come from that fallback.
    std::string latitudeMark(Session& session, const PrayTimes& times, int code);
    std::string earlierDayMark(const PrayTimes& times, int code);
    /// The mark of a time that the chosen method, a table or the user changed.
    std::string sourceMark(const CityDay& day, int code);
    /// The mark of a time at which the clock shows another one, because it changes on that day.
    std::string clockMark(Session& session, const ZoneClock& clock, const CityDay& day, int code);

    /// The numbered explanations.
    std::vector<std::string> lines() const;

  private:
    std::string mark(const std::string& text);

    std::vector<std::string> texts_;
};

/// Where the clock of a city differs from the system's: in the two years from `now` on, and in a range of days that is
/// shown. Nothing where the system's zone data are known to be older.
std::vector<ZoneDisagreement> zoneProblems(Session& session, const CityRecord& city, const VAKDate& now,
                                           const VAKDate& first, const VAKDate& last);

/// {"edition": "2026f", "of_system": false}: the zone data that the clock of a city rests on.
Json zoneDataJson(const CityRecord& city);

Json warningsJson(const std::vector<ZoneDisagreement>& problems);

}  // namespace quode::app
