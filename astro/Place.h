// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "astro/PrayTimes.h"

namespace quode {

/// The two angles that `FastAstro::KibleAcisi` returns. Fixed names: all of this file.
struct KiblePair {
    double i = 0.0;  ///< auxiliary angle of the qibla time, radians
    double K = 0.0;  ///< qibla angle, degrees counter-clockwise from north (minus the azimuth, or 360 minus it)
};

/// Declination and equation of time at both ends of a day, with the sunrises and sunsets around it.
struct SunInfoForPray {
    double PrevDec = 0.0;      ///< declination at 0 h of the day, degrees
    double CurrentDec = 0.0;   ///< never written
    double NextDec = 0.0;      ///< declination at 0 h of the next day, degrees
    double PrevTZ = 0.0;       ///< equation of time at 0 h of the day, hours
    double CurrentTZ = 0.0;    ///< never written
    double NextTZ = 0.0;       ///< equation of time at 0 h of the next day, hours
    double SunRise = 0.0;      ///< of the previous day, universal time, or -1.0
    double SunSet = 0.0;       ///< of the previous day, universal time, or -1.0
    double SunNextRise = 0.0;  ///< of the day, universal time, or -1.0
    double SunNextSet = 0.0;   ///< of the day, universal time, or -1.0
};

/// A place, its clock, and the values computed for it.
struct Place {
    int ID = 0;
    std::string CountryName, CityName, TownName, TownShipName;
    double Latitude = 0.0;   ///< degrees, north positive
    double Longitude = 0.0;  ///< degrees, east positive
    double GMTValue = 0.0;   ///< hours east of Greenwich, summer time included while it is in force
    bool DST = false;        ///< the place observes summer time
    double DSTValue = 0.0;   ///< size of the shift, hours
    int DSTStartDay = 0, DSTStartMonth = 0, DSTStopDay = 0, DSTStopMonth = 0;  ///< as `IsDSTDay` takes them
    bool TemkinHeight = false;  ///< margin for 500 m of height; 250 m otherwise
    bool isDSTTime = false;     ///< summer time is in force on the current date
    PrayTimes TodayPrayTimes, NextPrayTimes;
    KiblePair KibleAngle;
};

}  // namespace quode
