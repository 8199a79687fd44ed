// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A convention is everything that a published timetable adds to the geometry of the Sun, as plain data. To add one, add
// a record to the table in conventions/table.cpp.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "astro/prayer.h"

namespace quode::conventions {

/// How a time is rounded to a minute of the clock. Halves round up.
enum class Rounding { nearest, up, down };

/// The instant for which the place of the Sun is taken.
enum class SunMoment {
    event,      ///< that of the event itself
    startOfDay  ///< 0 h UT of the civil date, for every event of that date
};

/// What defines a time before its minutes are added.
enum class Basis {
    horizon,       ///< upper limb on the horizon: the centre 50 arc minutes below it
    depression,    ///< the centre of the Sun at an angle below the horizon
    transit,       ///< the Sun on the meridian
    shadow,        ///< the shadow has grown by a factor of the object's length
    afterMaghrib,  ///< an interval after the published Maghrib
};

/// The rule of one time.
struct PrayerRule {
    Basis basis = Basis::horizon;
    double angle = 0.0;    ///< of a depression, degrees
    double minutes = 0.0;  ///< added to the time; of `afterMaghrib` the interval
    Rounding rounding = Rounding::nearest;
    SunMoment moment = SunMoment::event;
    double ramadanMinutes = 0.0;  ///< instead of `minutes` in Ramadan, when not 0
};

/// The rule for places and dates where the Sun does not reach the angle of a twilight.
enum class HighLatitudeRule {
    none,                  ///< the time stays empty
    middleOfNight,         ///< not beyond half of the night
    oneSeventh,            ///< within the last and first seventh of the night
    angleBased,            ///< within angle/60 of the night
    nearestLatitude,       ///< the interval to sunrise or sunset at 48.5 degrees, applied to the local ones
    nearestLatitudeClock,  ///< the clock time at 48.5 degrees on the same meridian
    nearestDay,            ///< the interval to noon of the nearest date on which the angle is reached
    moonsighting,          ///< minutes that change with season and latitude; general twilight
    moonsightingAhmer,     ///< the same until the red twilight ends
    moonsightingAbyad,     ///< the same until the white twilight ends
    diyanetNorth,          ///< a part of the night that spring determines, with ramps before and after
};

/// The names of a rule.
struct HighLatitudeName {
    HighLatitudeRule rule;
    std::string_view key;      ///< as users type it
    std::string_view meaning;  ///< in one line
};

/// All rules with their names.
std::span<const HighLatitudeName> highLatitudeNames();

/// The key of a rule.
std::string_view keyOf(HighLatitudeRule rule);

/// The rule of a key; nothing for another text.
std::optional<HighLatitudeRule> highLatitudeRuleOf(std::string_view key);

/// How the height of a place changes its times.
enum class HeightRule {
    none,
    dip,    ///< the dip of the horizon is added to the depressions of Fajr, sunrise, Maghrib and Isha
    steps,  ///< whole minutes by steps of height for sunrise and Maghrib; only for a height that the user gives
};

/// When the night begins whose middle and thirds are shown. It ends with Fajr.
enum class NightBegin {
    maghrib,  ///< with Maghrib, as it is shown
    sunset,   ///< with the set of the upper limb, without the convention's minutes
};

/// The point for which a table is computed.
enum class PointRule {
    place,       ///< the place itself
    published,   ///< the point of the authority, for places near it
    jakimZones,  ///< the point of the zone that the place belongs to
};

/// A point from which an authority computes for all places near it.
struct ReferencePoint {
    std::string_view name;
    double latitude = 0.0, longitude = 0.0;  ///< degrees
    double reach = 0.0;                      ///< kilometres; places within this distance use the point
};

/// Another form of a convention from a northern latitude on.
struct NorthernForm {
    double fromLatitude = 100.0;  ///< degrees; above 90: no such form
    double ishaAngle = 0.0;       ///< degrees
    HighLatitudeRule rule = HighLatitudeRule::none;
};

/// Another angle of Fajr in earlier years.
struct FormerFajr {
    int beforeYear = 0;  ///< AH, of the Umm al-Qura calendar; 0: no such angle
    double angle = 0.0;  ///< degrees
};

/// Who computes the times.
enum class Computation {
    engine,  ///< Quode's own engine, with its margin
    rules,   ///< the rules of this record
};

/// A convention of an authority.
struct Convention {
    std::string_view key;              ///< as users type it: "diyanet"
    std::string_view name;             ///< "Diyanet, Türkiye"
    std::string_view authority;        ///< the body in full
    std::string_view countries;        ///< ISO 3166-1 alpha-2 codes of the authority's countries, separated by blanks
    std::string_view alsoUsedIn = {};  ///< countries without an authority here, where programs often calculate by it
    Computation computation = Computation::rules;
    std::array<PrayerRule, mainPrayerCount> rules{};
    int asrFactor = 1;  ///< the usual one; users may choose the other
    HeightRule height = HeightRule::none;
    HighLatitudeRule highLatitude = HighLatitudeRule::middleOfNight;
    NorthernForm north = {};
    NightBegin night = NightBegin::maghrib;
    FormerFajr formerFajr = {};
    PointRule point = PointRule::place;
    std::span<const ReferencePoint> points = {};
    bool isCommonDefinition = false;        ///< as calculation programs define it; the body itself publishes no rule
    std::string_view source = {};           ///< where the parameters come from
    std::string_view remark = {};           ///< what users need to know; may be empty
    std::string_view sampleAuthority = {};  ///< the name of the authority in the published rows; empty without rows

    /// The rule of a prayer.
    constexpr const PrayerRule& rule(Prayer prayer) const { return rules[indexOf(prayer)]; }
    constexpr PrayerRule& rule(Prayer prayer) { return rules[indexOf(prayer)]; }
};

/// All conventions; the first is the default.
std::span<const Convention> allConventions();

/// The engine's own method, key "quode".
const Convention& defaultConvention();

/// The convention of a key; upper and lower case are equal.
/// @return nullptr for an unknown key
const Convention* findConvention(std::string_view key);

/// The convention that is usual in a country: its own authority's, else the one that programs often calculate with there.
/// @param countryCode  ISO 3166-1 alpha-2
/// @return nullptr where none is known
const Convention* usualIn(std::string_view countryCode);

/// True when a convention is that of an authority of a country.
bool isOfCountry(const Convention& convention, std::string_view countryCode);

}  // namespace quode::conventions
