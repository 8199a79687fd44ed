// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The day's prayer times.
#include <array>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/SeriesTables.h"
#include "astro/angles.h"

namespace quode {
namespace {

constexpr int morning = -1;
constexpr int evening = 1;
constexpr double sunriseCaution = 0.013888888992369175;  // 50 seconds, hours
constexpr double sunsetCaution = 0.05000000074505806;    // 3 minutes, hours
constexpr int earlierDaysTried = 365;
constexpr int mostLatitudeSteps = 180;

/// Moves a value at 0 h toward its value 24 hours later.
double moveToward(double from, double to, double hours) {
    const double step = std::abs((from - to) * hours / 24.0);
    return from > to ? from - step : from + step;
}

VAKDate dayOffset(const VAKDate& day, int days) {
    VAKDate moved;
    AstroGlobalFuncs::JulianToCalendar(
        AstroGlobalFuncs::CalculateJulianDay(day.Years, day.Months, day.Days + days, 0, 0, 0), moved, true);
    return moved;
}

/// The parts of the night that begins at sunset and ends at dawn.
void divideNight(PrayTimes& times) {
    if (times.Imsak == missingTime || times.Aksam == missingTime) {
        times.Teheccud = times.Gece2 = times.Gece3 = missingTime;
        return;
    }
    const double night = 24.0 - (times.Aksam - times.Imsak);
    times.Teheccud = times.Imsak - night / 6.0;
    times.Gece2 = times.Aksam + night * 0.5;
    times.Gece3 = times.Aksam + night / 3.0;
}

/// The time at which the Sun stands in the qibla direction; the zone is not added.
double timeOfQibla(const KiblePair& kible, double latitude, double longitudeCorrection, const SunInfoForPray& sun) {
    double hourAngle = std::acos(tanDeg(sun.PrevDec) * std::cos(kible.i) / tanDeg(latitude)) - kible.i;
    if (kible.K > 180.0) hourAngle = -hourAngle;
    const double time = longitudeCorrection + 12.0 - hourAngle * degreesPerRadian / 15.0;
    return realOr(missingTime, time - moveToward(sun.PrevTZ, sun.NextTZ, time));
}

}  // namespace

const Place& FastAstro::CalculatePrayTimes() {
    calculateDay(iCurrentDate_, iPlace_.TodayPrayTimes);
    return iPlace_;
}

void FastAstro::CalculateNextPrayTimes() {
    calculateDay(dayOffset(iCurrentDate_, 1), iPlace_.NextPrayTimes);
}

void FastAstro::calculateDay(const VAKDate& day, PrayTimes& times) {
    iPlace_.KibleAngle = KibleAcisi(iPlace_.Latitude, iPlace_.Longitude);
    CalculateAllPrayTimes(day.Days, day.Months, day.Years, 0, 0, 0, iPlace_.Latitude, iPlace_.Longitude,
                          iPlace_.TemkinHeight, static_cast<int>(iPlace_.GMTValue), times, iPlace_.KibleAngle);
}

double FastAstro::Temkin(double latitude, bool height500m) {
    constexpr double beyondTable500m = 0.40555556615193683, beyondTable250m = 0.3388888994852702;
    const double north = std::abs(latitude);
    const double whole = std::trunc(north);
    if (!(whole < 60.0)) return height500m ? beyondTable500m : beyondTable250m;
    const auto minutes = height500m ? &tables::TemkinRow::minutes500m : &tables::TemkinRow::minutes250m;
    const auto row = static_cast<std::size_t>(whole);
    const double here = tables::temkin_minutes[row].*minutes / 60.0;
    const double next = tables::temkin_minutes[row + 1].*minutes / 60.0;
    return here + (north - whole) * (next - here);
}

SunInfoForPray FastAstro::SunInformationForPray(int day, int month, int year) {
    SunInfoForPray sun;
    SunRiseSet(day - 1, month, year);
    sun.SunRise = UTRise_;
    sun.SunSet = UTSet_;
    readDailySun(day, month, year, sun.PrevDec, sun.PrevTZ);
    SunRiseSet(day, month, year);
    sun.SunNextRise = UTRise_;
    sun.SunNextSet = UTSet_;
    readDailySun(day + 1, month, year, sun.NextDec, sun.NextTZ);
    SunInfo_ = sun;
    return sun;
}

void FastAstro::readDailySun(int day, int month, int year, double& declination, double& equationHours) {
    const double midnight = AstroGlobalFuncs::CalculateJulianDay(year, month, day, 0, 0, 0);
    SunDecRAAccurate(midnight);
    declination = SunDec_;
    // By way of the transit, whose rounding belongs to the value.
    const double meridian = Lon_ / 15.0;
    equationHours = 12.0 - (meridian + ((12.0 - EquationOfTime(midnight, SunRA_) / 60.0) - meridian));
}

int FastAstro::Iterasyon(double& result, double latitude, double longitudeCorrection, double temkin, double GMTValue,
                         int angle, int side, const SunInfoForPray& sun) {
    constexpr double oneSecond = 0.00027777778450399637, almostOne = 0.9990000128746033, halfPi = 1.5707963705062866;
    constexpr int mostPasses = 10;
    const bool isShadowFactor = angle == 1 || angle == 2;
    double altitude = static_cast<float>(angle * degree);
    double previous = result = 12.0;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const double declination = moveToward(sun.PrevDec, sun.NextDec, previous);
        if (isShadowFactor) altitude = halfPi - std::atan(angle + tanDeg(std::abs(latitude - declination)));
        const double cosH = (std::sin(altitude) - static_cast<float>(sinDeg(latitude) * sinDeg(declination))) /
                            static_cast<float>(cosDeg(latitude) * cosDeg(declination));
        const double apparent = side * std::acos(cosH) * degreesPerRadian / 15.0 + 12.0;
        result = apparent - moveToward(sun.PrevTZ, sun.NextTZ, apparent) + longitudeCorrection + temkin + GMTValue;
        if (!std::isfinite(result)) {
            result = missingTime;
            return 0;
        }
        if (std::abs(result - previous) <= oneSecond) {
            if (result < 0.0) result += 1.0;  // one hour, not one day
            return cosH >= -almostOne && cosH <= almostOne ? 1 : 0;
        }
        previous = result;
    }
    return 1;
}

double FastAstro::timeOfAltitude(int angle, int side, double correction, double temkin,
                                 const SunInfoForPray& sun) const {
    double time = 0.0;
    return Iterasyon(time, Lat_, correction, temkin, iPlace_.GMTValue, angle, side, sun) == 1 ? time : missingTime;
}

double FastAstro::timeOnNearestEarlierDay(const VAKDate& day, int angle, int side, double correction, double temkin,
                                          bool& isEarlier) {
    double time = timeOfAltitude(angle, side, correction, temkin, SunInfo_);
    SunInfoForPray sun = SunInfo_;
    VAKDate earlier = day;
    for (int tried = 0; time == missingTime && tried < earlierDaysTried; ++tried) {
        isEarlier = true;
        earlier = dayOffset(earlier, -1);
        // Only declination and equation of time are needed, and the later end of this day is the start of the one
        // after.
        sun.NextDec = sun.PrevDec;
        sun.NextTZ = sun.PrevTZ;
        readDailySun(earlier.Days, earlier.Months, earlier.Years, sun.PrevDec, sun.PrevTZ);
        time = timeOfAltitude(angle, side, correction, temkin, sun);
    }
    return time;
}

void FastAstro::readSunLoweringLatitude(const VAKDate& day, double correction, double temkin, PrayTimes& times) {
    SunInformationForPray(day.Days, day.Months, day.Years);
    const auto sunIsMissing = [this] { return SunInfo_.SunRise == missingTime || SunInfo_.SunSet == missingTime; };
    bool lower = sunIsMissing();
    for (int step = 0; lower && step < mostLatitudeSteps; ++step) {
        times.isLatitudeChanged = true;
        times.newLat = Lat_;
        Lat_ -= std::copysign(1.0, Lat_);
        SunInformationForPray(day.Days, day.Months, day.Years);
        lower = sunIsMissing() || timeOfAltitude(0, morning, correction, -temkin, SunInfo_) == missingTime ||
                timeOfAltitude(1, evening, correction, temkin, SunInfo_) == missingTime;
    }
}

void FastAstro::CalculateAllPrayTimes(int day, int month, int year, int /*hour*/, int /*minute*/, int /*second*/,
                                      double latitude, double longitude, bool temkin, int /*zoneHours*/,
                                      PrayTimes& times, const KiblePair& kible) {
    const double margin = Temkin(latitude, temkin);
    const double correction = longitude / -15.0;
    const double latitudeOnEntry = Lat_;
    const VAKDate date = VAKDateMake(day, month, year, 0, 0, 0);
    times.isLatitudeChanged = false;
    readSunLoweringLatitude(date, correction, margin, times);
    const SunInfoForPray sun = SunInfo_;
    const auto timeOf = [&](int angle, int side, double marginHere) {
        return timeOfAltitude(angle, side, correction, marginHere, sun);
    };

    times.EzaniGunes = realOr(missingTime, 4.0 * (std::asin(tanDeg(sun.PrevDec) * tanDeg(Lat_)) * degreesPerRadian));
    times.Imsak = timeOnNearestEarlierDay(date, -19, morning, correction, -margin, times.isImsakBeforeTime);
    times.Gunes = timeOf(0, morning, -margin);
    if (times.Gunes != missingTime) times.Gunes -= sunriseCaution;

    const double noon = correction + 12.0 - (sun.PrevTZ + (sun.NextTZ - sun.PrevTZ) * 0.5);
    times.Ogle = iPlace_.GMTValue + margin + noon;
    times.Zeval = iPlace_.GMTValue + noon - margin;
    times.AsriEvvel = timeOf(1, evening, margin);
    times.AsriSani = timeOf(2, evening, margin);
    times.Aksam = timeOf(0, evening, margin);
    if (times.Aksam != missingTime) times.Aksam += sunsetCaution;

    times.IsaEvvel = timeOnNearestEarlierDay(date, -17, evening, correction, margin, times.isIsaEvvelBeforeTime);
    times.IsaSani = times.IsaEvvel == missingTime
                        ? missingTime
                        : timeOnNearestEarlierDay(date, -19, evening, correction, margin, times.isIsaSaniBeforeTime);
    times.Duha = timeOf(5, morning, margin);
    times.IsfirariSems = timeOf(5, evening, 0.0);
    divideNight(times);
    times.KibleSun = times.isLatitudeChanged ? missingTime : timeOfQibla(kible, latitude, correction, sun);
    Lat_ = latitudeOnEntry;
}

void FastAstro::MinuteCorrection(double& time) {
    const double minutes = AstroGlobalFuncs::frac(time) * 60.0;
    const double seconds = AstroGlobalFuncs::frac(minutes) * 60.0;
    double rounded = TimeToHourDeg(time);
    if (std::trunc(seconds) > 29.0) rounded += 0.01666666753590107;
    time = rounded + 0.00027777778450399637;
}

double FastAstro::TimeToHourDeg(double time) {
    const auto hours = static_cast<float>(std::trunc(time));
    const auto minutes = static_cast<float>(std::trunc(AstroGlobalFuncs::frac(time) * 60.0));
    return hours + minutes / 60.0f;
}

void FastAstro::SetPrayTimesToDSTTimes(PrayTimes& times, double shift) {
    for (int slot = 0; slot <= 12; ++slot) {
        if (times.slot(slot) != missingTime) times.slot(slot) += shift;
    }
    for (const auto part : {&PrayTimes::Gece2, &PrayTimes::Gece3}) {
        times.*part += shift;
        if (times.*part >= 24.0) times.*part -= 24.0;
    }
}

double FastAstro::CalculateEzaniTimes(const PrayTimes& times, double /*ezani*/, double time) {
    const double sinceSunset = 24.0 - (TimeToHourDeg(times.Aksam) - TimeToHourDeg(time));
    if (!(sinceSunset > 13.0)) return realOr(missingTime, sinceSunset);
    return realOr(missingTime, sinceSunset - 12.0 * std::ceil((sinceSunset - 13.0) / 12.0));
}

void FastAstro::CalculateAllEzaniTimes(PrayTimes& times) {
    times.EzaniAksam = 12.0;
}

}  // namespace quode
