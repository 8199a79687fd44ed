// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// The mark of a moonrise or moonset that was not found, and of a Moon altitude that does not exist.
inline constexpr double missingMoonTime = -1650.0;

// ---- Fixed names: the records of this file and their fields ----

/// The Moon at one moment, as `FastAstro::MoonInformation` returns it.
struct MoonInfo {
    double Dec = 0.0;                  ///< declination, degrees
    double RA = 0.0;                   ///< right ascension, hours
    double TrueAlt = 0.0;              ///< geocentric altitude, degrees
    double AppAlt = 0.0;               ///< altitude seen by the observer, degrees
    double Azimuth = 0.0;              ///< degrees from north, clockwise; -1 where there is none
    double RiseTime = 0.0;             ///< hours, or -1650.0
    double TransTime = 0.0;            ///< hours; a constant, see `MoonTransTime`
    double SetTime = 0.0;              ///< hours, or -1650.0
    double SideRealTime = 0.0;         ///< local sidereal time, hours
    double Distance = 0.0;             ///< km
    double HorParal = 0.0;             ///< horizontal parallax, degrees
    double Diameter = 0.0;             ///< semi-diameter, degrees
    double Elongation = 0.0;           ///< angle from the Sun, degrees
    double IlluminatedFraction = 0.0;  ///< percent, whole number
    bool BrightInc = false;            ///< true while the Moon is waxing
    double GHA = 0.0;                  ///< Greenwich hour angle, degrees
};

/// The Sun at one moment, as `FastAstro::SunInformation` returns it.
struct SunData {
    double Dec = 0.0;           ///< declination, degrees
    double RA = 0.0;            ///< right ascension, hours
    double Alt = 0.0;           ///< altitude, degrees
    double Azimuth = 0.0;       ///< degrees from north, clockwise; -1 where there is none
    double RiseTime = 0.0;      ///< hours, or -1.0
    double TransTime = 0.0;     ///< hours, universal time
    double SetTime = 0.0;       ///< hours, or -1.0
    double SideRealTime = 0.0;  ///< local sidereal time, hours
    double EquationTime = 0.0;  ///< equation of time, minutes
    double Distance = 0.0;      ///< astronomical units
    double Diameter = 0.0;      ///< apparent diameter, arc minutes
    double Shadow = 0.0;        ///< length of the shadow of a gnomon of length 1; negative below the horizon
    double GHA = 0.0;           ///< Greenwich hour angle, degrees
};

/// Directions of Sun and Moon with the day's rise and set.
struct DirectionInfo {
    double SunRise = 0.0, SunSet = 0.0;          ///< hours, or -1.0
    double SunAzimuth = 0.0, SunAltitude = 0.0;  ///< degrees
    double MoonRise = 0.0, MoonSet = 0.0;        ///< hours; below -1000 when there is none
    double MoonAzimuth = 0.0;                    ///< degrees, or -1 where there is none
    double MoonAltitude = 0.0;                   ///< apparent altitude, degrees
    double MoonElongation = 0.0;                 ///< degrees
};

/// The values that decide whether a crescent can be seen.
struct CrescentInfo {
    double SunRise = 0.0, SunSet = 0.0;  ///< universal time, hours, or -1.0
    double MoonAltitude = 0.0;           ///< apparent altitude, degrees
    double MoonElongation = 0.0;         ///< degrees
};

/// The day's sky in five values.
struct WidgetSkyInfo {
    double SunRise = 0.0, SunSet = 0.0;    ///< local hours, or -1.0
    double MoonRise = 0.0, MoonSet = 0.0;  ///< local hours; below -1000 when there is none
    double MoonAltitudeOnSunSet = 0.0;     ///< apparent altitude in degrees, or -1650.0
};

/// One day in several calendars, as `FastAstro::ConvertAllCalendar` fills it.
struct AllCalendarInfo {
    int GregorianDay = 0, GregorianMonth = 0, GregorianYear = 0;
    int DayOfWeek = 0;  ///< 0 = Sunday
    int HijriDay = 0, HijriMonth = 0, HijriYear = 0;
    bool isSummerSeason = false;  ///< true from 6 May to 7 November
    int RumiDay = 0, RumiMonth = 0, RumiYear = 0;
    int DayOfSeason = 0;    ///< counted from 6 May or 8 November, which is day 1
    double reserved = 0.0;  ///< never written
};

}  // namespace quode
