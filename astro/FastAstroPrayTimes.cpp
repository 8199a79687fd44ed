// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The day's prayer times.
#include <algorithm>
#include <array>
#include <cmath>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/SeriesTables.h"
#include "astro/SunCourse.h"
#include "astro/angles.h"

namespace quode {
namespace {

constexpr int morning = -1;
constexpr int evening = 1;
constexpr double sunriseCaution = 0.013888888992369175;  // 50 seconds, hours
constexpr double sunsetCaution = 0.05000000074505806;    // 3 minutes, hours
constexpr int earlierDaysTried = 365;
constexpr int mostLatitudeSteps = 180;

/// The value at an hour, between the value at 0 h and that 24 hours later.
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

/// Sets the parts of the night from sunset to dawn.
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

/// The time at which the Sun stands in the qibla direction, without the zone's hours.
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
    if (qiblaPoint_.latitude != iPlace_.Latitude || qiblaPoint_.longitude != iPlace_.Longitude) {
        qiblaPoint_ = {iPlace_.Latitude, iPlace_.Longitude, KibleAcisi(iPlace_.Latitude, iPlace_.Longitude)};
    }
    iPlace_.KibleAngle = qiblaPoint_.kible;
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
    if (!readSunForPray(day, month, year)) finishSunForPray(day, month, year);
    return SunInfo_;
}

/// `SunInformationForPray` without the fields that few callers need.
/// @return false when `finishSunForPray` has to set the fields of the searches
bool FastAstro::readSunForPray(int day, int month, int year) {
    SunInfoForPray sun;
    if (timesOnly_) {
        readDailySun(day, month, year, sun.PrevDec, sun.PrevTZ);
        if (isPlainDay(day - 1, month, year, sun.PrevDec) || isSureToRiseAndSet(day - 1, month, year)) {
            readDailySun(day + 1, month, year, sun.NextDec, sun.NextTZ);
            SunInfo_ = sun;
            return true;
        }
    }
    searchSun(day - 1, month, year);  // the search of the day itself overwrites its fields
    sun.SunRise = UTRise_;
    sun.SunSet = UTSet_;
    readDailySun(day, month, year, sun.PrevDec, sun.PrevTZ);
    const bool isFinished = searchSun(day, month, year);
    sun.SunNextRise = UTRise_;
    sun.SunNextSet = UTSet_;
    readDailySun(day + 1, month, year, sun.NextDec, sun.NextTZ);
    SunInfo_ = sun;
    return isFinished;
}

void FastAstro::finishSunForPray(int day, int month, int year) {
    finishSunSearch(day, month, year);
    double declination = 0.0, equation = 0.0;
    readDailySun(day + 1, month, year, declination, equation);
}

const SunMidnight& FastAstro::sunMidnight(double midnight) {
    const auto key = static_cast<long>(midnight);
    SunMidnight& known = shared_ != nullptr ? shared_->sunMidnights.at(key) : sunMidnights_.at(key);
    if (known.julianDay == midnight) {
        SunDistance_ = known.distance;
        SunDec_ = known.declination;
        SunRA_ = known.rightAscension;
    } else {
        SunDecRAAccurate(midnight);
        known = {midnight, SunDec_, SunRA_, SunDistance_, EquationOfTime(midnight, SunRA_)};
    }
    return known;
}

void FastAstro::readDailySun(int day, int month, int year, double& declination, double& equationHours) {
    const SunMidnight& sun = sunMidnight(AstroGlobalFuncs::CalculateJulianDay(year, month, day, 0, 0, 0));
    declination = sun.declination;
    // By way of the transit, whose rounding is part of the value.
    const double meridian = Lon_ / 15.0;
    equationHours = 12.0 - (meridian + ((12.0 - sun.equation / 60.0) - meridian));
}

int FastAstro::Iterasyon(double& result, double latitude, double longitudeCorrection, double temkin, double GMTValue,
                         int angle, int side, const SunInfoForPray& sun) {
    const LatitudeTrig observer{latitude, sinDeg(latitude), cosDeg(latitude)};
    SunCourse::Search search{angle, side, temkin};
    SunCourse(sun, observer, longitudeCorrection, GMTValue).solve({&search, 1});
    result = search.result;
    return search.found;
}

double FastAstro::timeOnNearestEarlierDay(const VAKDate& day, double time, int angle, int side, double correction,
                                          double temkin, bool& isEarlier) {
    if (time != missingTime) return time;
    SunInfoForPray sun = SunInfo_;
    VAKDate earlier = day;
    const double midnight = AstroGlobalFuncs::midnightBefore(day.Years, day.Months, day.Days);
    const bool isPlain = midnight > 1722000.0 && !(midnight > 2299100.0 && midnight < 2299600.0);
    for (int tried = 0; time == missingTime && tried < earlierDaysTried; ++tried) {
        isEarlier = true;
        if (isPlain) {
            // Skips the days on which the Sun stays far from that altitude, except the last, whose values stay in the fields.
            const int next = std::min(firstDayWithAltitude(midnight, angle, tried + 1), earlierDaysTried) - 1;
            if (next > tried) {
                tried = next;
                earlier = dayOffset(day, -tried);
                readDailySun(earlier.Days, earlier.Months, earlier.Years, sun.PrevDec, sun.PrevTZ);
            }
        }
        earlier = dayOffset(earlier, -1);
        // Only declination and equation of time are needed; the end of this day is the start of the next.
        sun.NextDec = sun.PrevDec;
        sun.NextTZ = sun.PrevTZ;
        readDailySun(earlier.Days, earlier.Months, earlier.Years, sun.PrevDec, sun.PrevTZ);
        time = SunCourse(sun, latitudeTrig(), correction, iPlace_.GMTValue).timeOf(angle, side, temkin);
    }
    return time;
}

/// The number of days before a midnight, at least `from`, at which the Sun may reach an altitude with noon's declination.
/// On the days between, the search for the time would end in its first step.
int FastAstro::firstDayWithAltitude(double midnight, int angle, int from) {
    constexpr double clearly = 0.002;
    // Sine and cosine of the declination change by less than this in a day, both together.
    constexpr double fastestChange = 0.009;
    const LatitudeTrig& observer = latitudeTrig();
    const double sine = sinDeg(angle);
    int days = from;
    while (days <= earlierDaysTried) {
        const HorizonForecast::SunDeclination sun = HorizonForecast::sunDeclination(midnight - days + 0.5);
        const double missing = std::abs(sine - observer.sine * sun.sine) - observer.cosine * sun.cosine - clearly;
        if (missing <= 0.0) break;
        days += 1 + static_cast<int>(missing / fastestChange);
    }
    return days;
}

void FastAstro::readSunLoweringLatitude(const VAKDate& day, double correction, double temkin, PrayTimes& times) {
    bool isFinished = readSunForPray(day.Days, day.Months, day.Years);
    const auto sunIsMissing = [this] { return SunInfo_.SunRise == missingTime || SunInfo_.SunSet == missingTime; };
    bool lower = sunIsMissing();
    for (int step = 0; lower && step < mostLatitudeSteps; ++step) {
        times.isLatitudeChanged = true;
        times.newLat = Lat_;
        Lat_ -= std::copysign(1.0, Lat_);
        isFinished = readSunForPray(day.Days, day.Months, day.Years);
        const SunCourse sun(SunInfo_, latitudeTrig(), correction, iPlace_.GMTValue);
        lower = sunIsMissing() || sun.timeOf(0, morning, -temkin) == missingTime ||
                sun.timeOf(1, evening, temkin) == missingTime;
    }
    if (!isFinished) finishSunForPray(day.Days, day.Months, day.Years);
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
    enum Searched { imsak, gunes, asriEvvel, asriSani, aksam, isaEvvel, isaSani, duha, isfirari };
    std::array<SunCourse::Search, SunCourse::mostSearches> searches{{{-19, morning, -margin},
                                                                     {0, morning, -margin},
                                                                     {1, evening, margin},
                                                                     {2, evening, margin},
                                                                     {0, evening, margin},
                                                                     {-17, evening, margin},
                                                                     {-19, evening, margin},
                                                                     {5, morning, margin},
                                                                     {5, evening, 0.0}}};
    SunCourse(sun, latitudeTrig(), correction, iPlace_.GMTValue).solve(searches);
    const auto timeOf = [&searches](Searched which) {
        return searches[which].found == 1 ? searches[which].result : missingTime;
    };

    times.EzaniGunes = realOr(missingTime, 4.0 * (std::asin(tanDeg(sun.PrevDec) * tanDeg(Lat_)) * degreesPerRadian));
    times.Imsak =
        timeOnNearestEarlierDay(date, timeOf(imsak), -19, morning, correction, -margin, times.isImsakBeforeTime);
    times.Gunes = timeOf(gunes);
    if (times.Gunes != missingTime) times.Gunes -= sunriseCaution;

    const double noon = correction + 12.0 - (sun.PrevTZ + (sun.NextTZ - sun.PrevTZ) * 0.5);
    times.Ogle = iPlace_.GMTValue + margin + noon;
    times.Zeval = iPlace_.GMTValue + noon - margin;
    times.AsriEvvel = timeOf(asriEvvel);
    times.AsriSani = timeOf(asriSani);
    times.Aksam = timeOf(aksam);
    if (times.Aksam != missingTime) times.Aksam += sunsetCaution;

    times.IsaEvvel =
        timeOnNearestEarlierDay(date, timeOf(isaEvvel), -17, evening, correction, margin, times.isIsaEvvelBeforeTime);
    times.IsaSani = times.IsaEvvel == missingTime
                        ? missingTime
                        : timeOnNearestEarlierDay(date, timeOf(isaSani), -19, evening, correction, margin,
                                                  times.isIsaSaniBeforeTime);
    times.Duha = timeOf(duha);
    times.IsfirariSems = timeOf(isfirari);
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
