// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Place, date, clock and sidereal time.
#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/angles.h"

namespace quode {

void FastAstro::SetLatLon(double latitude, double longitude) {
    Lat_ = latitude;
    Lon_ = longitude;
}

void FastAstro::SetCurrentDate(int day, int month, int year) {
    iCurrentDate_.Years = year;
    iCurrentDate_.Months = month;
    iCurrentDate_.Days = day;
}

void FastAstro::SetCurrentDateTime(const VAKDate& date) {
    iCurrentDate_ = date;
}

void FastAstro::SetPlace(double latitude, double longitude, double GMT, int DST, int startMonth, int startDay,
                         int stopMonth, int stopDay, double DSTValue, int temkin) {
    SetLatLon(latitude, longitude);
    Place& place = iPlace_;
    place.Latitude = latitude;
    place.Longitude = longitude;
    place.GMTValue = GMT;
    place.TemkinHeight = temkin == 1;
    place.DST = DST == 1;
    place.DSTValue = place.DST ? DSTValue : 0.0;
    place.DSTStartDay = place.DST ? startDay : 0;
    place.DSTStartMonth = place.DST ? startMonth : 0;
    place.DSTStopDay = place.DST ? stopDay : 0;
    place.DSTStopMonth = place.DST ? stopMonth : 0;
    place.isDSTTime = place.DST && isDSTDate(iCurrentDate_);
    if (place.isDSTTime) place.GMTValue += 1.0;  // one hour whatever the stored shift
}

bool FastAstro::isDSTDate(const VAKDate& date) const {
    int startDayOfMonth = 0, stopDayOfMonth = 0;
    return AstroGlobalFuncs::IsDSTDay(iPlace_.DSTStartDay, iPlace_.DSTStartMonth, iPlace_.DSTStopDay,
                                      iPlace_.DSTStopMonth, date.Years, date.Months, date.Days, startDayOfMonth,
                                      stopDayOfMonth);
}

void FastAstro::SetUniversalTime(VAKDate& date) const {
    if (isDSTDate(date)) date.Hours -= static_cast<int>(iPlace_.DSTValue);
    date.Hours -= static_cast<int>(iPlace_.GMTValue);
    AstroGlobalFuncs::JulianToCalendar(AstroGlobalFuncs::JulianDay(date), date, true);
}

void FastAstro::SetLocalTime(double& time, const VAKDate& date) const {
    if (time == missingTime) return;
    if (isDSTDate(date)) time += static_cast<int>(iPlace_.DSTValue);
    time += static_cast<int>(iPlace_.GMTValue);
}

void FastAstro::SetLocalTimeManual(VAKDate& date, double days) {
    AstroGlobalFuncs::JulianToCalendar(AstroGlobalFuncs::JulianDay(date) + days, date, true);
}

double FastAstro::GM_Sidereal_Time(double julianDay) {
    const double mjd = julianDay - 2400000.5;
    const double mjd0 = wholePart(mjd);
    const double ut = (mjd - mjd0) * 24.0;
    const double t = static_cast<float>((mjd0 - 51544.5) / 36525.0);
    return 6.69737434387207 + 1.0027378797531128 * ut +
           t * (8640185.0 + t * (0.09310399740934372 + t * -6.199999916134402e-06)) / 3600.0;
}

double FastAstro::LM_Sidereal_Time(double julianDay, double westLongitude) {
    return 24.0 * AstroGlobalFuncs::frac((GM_Sidereal_Time(julianDay) + westLongitude / -15.0) / 24.0);
}

}  // namespace quode
