// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The search for sunrise and sunset, and the transit.
#include <array>
#include <cmath>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/SunMoments.h"
#include "astro/angles.h"
#include "astro/horizon_forecast.h"

namespace quode {
namespace {

// Sine of 50 arc minutes: refraction and half the Sun's disc.
constexpr double sinHorizonDepth = 0.014543315834289784;

}  // namespace

double FastAstro::SinElev(double julianDay, double latitude, double westLongitude, double declination,
                          double rightAscension) {
    double hourAngle = (LM_Sidereal_Time(julianDay, westLongitude) - rightAscension) * 15.0;
    if (hourAngle < 0.0) hourAngle += 360.0;
    return cosDeg(latitude) * cosDeg(declination) * cosDeg(hourAngle) + sinDeg(latitude) * sinDeg(declination);
}

double FastAstro::SunElev(double julianDay, double latitude, double westLongitude, double declination,
                          double rightAscension) {
    return safeAsin(SinElev(julianDay, latitude, westLongitude, declination, rightAscension)) * degreesPerRadian;
}

int FastAstro::Quad(double before, double after, double middle) {
    const double a = 0.5 * (before + after) - middle;
    const double b = 0.5 * (after - before);
    const double xe = b / (-2.0 * a);
    YE_ = (a * xe + b) * xe + middle;
    const double discriminant = b * b - 4.0 * a * middle;
    if (discriminant < 0.0) return 0;
    DX_ = 0.5 * std::sqrt(discriminant) / std::abs(a);
    Zero1_ = xe - DX_;
    Zero2_ = xe + DX_;
    int roots = 0;
    if (std::abs(Zero1_) <= 1.0) ++roots;
    if (std::abs(Zero2_) <= 1.0) ++roots;
    if (Zero1_ < -1.0) Zero1_ = Zero2_;
    return roots;
}

const LatitudeTrig& FastAstro::latitudeTrig() {
    if (latitudeTrig_.latitude != Lat_) latitudeTrig_ = {Lat_, sinDeg(Lat_), cosDeg(Lat_)};
    return latitudeTrig_;
}

SunMoment& FastAstro::sunMoment(double julianDay) {
    const auto key = static_cast<long>(julianDay * 24.0 + 0.25);
    return shared_ != nullptr ? shared_->sunMoments.at(key) : sunMoments_.at(key);
}

/// The observer's longitude in hours, east positive, as `LM_Sidereal_Time` computes it.
double FastAstro::meridian() {
    if (meridian_.longitude != Lon_) meridian_ = {Lon_, -Lon_ / -15.0};
    return meridian_.hours;
}

/// `SinElev` from values that are known already, in the same steps.
double FastAstro::sinElevOf(double siderealTime, double sinDeclination, double cosDeclination, double rightAscension) {
    const LatitudeTrig& observer = latitudeTrig();
    const double localTime = 24.0 * AstroGlobalFuncs::frac((siderealTime + meridian()) / 24.0);
    double hourAngle = (localTime - rightAscension) * 15.0;
    if (hourAngle < 0.0) hourAngle += 360.0;
    return observer.cosine * cosDeclination * cosDeg(hourAngle) + observer.sine * sinDeclination;
}

void FastAstro::RiseSet(int day, int month, int year, int hour) {
    if (hour >= 24) {
        hour -= 24;
        ++day;
    } else if (hour < 0) {
        hour += 24;
        --day;
    }
    const double midnight = AstroGlobalFuncs::midnightBefore(year, month, day);
    std::array<double, 3> julianDays;
    std::array<SunMoment*, 3> suns;
    for (std::size_t i = 0; i < suns.size(); ++i) {
        julianDays[i] = midnight + AstroGlobalFuncs::fractionOfHour(hour - 1 + static_cast<int>(i));
        suns[i] = &sunMoment(julianDays[i]);
    }
    computeMissing(suns, julianDays);
    const auto heightOf = [this](const SunMoment& sun) {
        return sinElevOf(sun.siderealTime, sun.sinDeclination, sun.cosDeclination, sun.rightAscension) +
               sinHorizonDepth;
    };
    const double before = heightOf(*suns[0]), middle = heightOf(*suns[1]), after = heightOf(*suns[2]);
    SunDec_ = suns[0]->declination;
    SunRA_ = suns[0]->rightAscension;
    EclipticLongitude_ = suns[0]->eclipticLongitude;
    const int roots = Quad(before, after, middle);
    if (roots == 1) {
        (before < 0.0 ? UTRise_ : UTSet_) = hour + Zero1_;
        (before < 0.0 ? Rise_ : Sett_) = true;
    } else if (roots == 2) {
        UTRise_ = hour + (YE_ < 0.0 ? Zero2_ : Zero1_);
        UTSet_ = hour + (YE_ < 0.0 ? Zero1_ : Zero2_);
        Rise_ = Sett_ = true;
    }
}

void FastAstro::SunRiseSet(int day, int month, int year) {
    if (!searchSun(day, month, year)) finishSunSearch(day, month, year);
}

/// Looks for sunrise and sunset.
/// @return false when `finishSunSearch` has to set the fields
bool FastAstro::searchSun(int day, int month, int year) {
    const int zone = static_cast<int>(iPlace_.GMTValue);
    const int firstHour = 1 - zone, endHour = 24 - zone;
    if (AstroGlobalFuncs::isAtChangeOfCalendar(year, month, day)) {  // hours are not consecutive
        Rise_ = Sett_ = false;
        UTRise_ = UTSet_ = missingTime;
        for (int hour = firstHour; hour < endHour && !(Rise_ && Sett_); ++hour) RiseSet(day, month, year, hour);
        return true;
    }
    const double midnight = AstroGlobalFuncs::midnightBefore(year, month, day);
    SunSearch& known = sunSearches_.at(static_cast<long>(midnight));
    if (known.midnight == midnight && known.Lat == Lat_ && known.Lon == Lon_ && known.zone == zone) {
        takeSunSearch(known);
        return true;
    }
    Rise_ = Sett_ = false;
    UTRise_ = UTSet_ = missingTime;
    searchSunHours(day, month, year, firstHour, endHour);
    if (!(Rise_ && Sett_)) return false;
    known = {midnight, Lat_, Lon_,    zone,   UTRise_,           UTSet_, YE_, Zero1_,
             Zero2_,   DX_,  SunDec_, SunRA_, EclipticLongitude_};
    return true;
}

void FastAstro::takeSunSearch(const SunSearch& search) {
    Rise_ = Sett_ = true;
    UTRise_ = search.UTRise;
    UTSet_ = search.UTSet;
    YE_ = search.YE;
    Zero1_ = search.Zero1;
    Zero2_ = search.Zero2;
    DX_ = search.DX;
    SunDec_ = search.SunDec;
    SunRA_ = search.SunRA;
    EclipticLongitude_ = search.EclipticLongitude;
}

HorizonForecast FastAstro::sunForecast(double midnight, int firstHour) {
    const LatitudeTrig& observer = latitudeTrig();
    return HorizonForecast(HorizonForecast::Body::sun, midnight, firstHour, observer.sine, observer.cosine, Lon_,
                           GM_Sidereal_Time(midnight), sinHorizonDepth);
}

/// True when a search certainly finds both, because the Sun rises and sets hours away from the ends of the civil day.
/// declination: of the Sun, within a day or so.
bool FastAstro::isPlainDay(int day, int month, int year, double declination) {
    // With half a day's arc of 1.7 to 8.5 hours around a noon within 1.5 hours of 12 o'clock, sunrise and sunset lie two
    // hours inside the day. Below this latitude they move by minutes from one day to the next.
    constexpr double plainLatitude = 60.0, largestShift = 1.5, shortestArc = 0.9, longestArc = -0.6;  // hours; cosines
    const double shift = static_cast<int>(iPlace_.GMTValue) - meridian();
    if (!(std::abs(Lat_) < plainLatitude && std::abs(shift) < largestShift)) return false;
    if (AstroGlobalFuncs::isAtChangeOfCalendar(year, month, day)) return false;
    const LatitudeTrig& observer = latitudeTrig();
    const double arc =
        -(observer.sine * sinDeg(declination) + sinHorizonDepth) / (observer.cosine * cosDeg(declination));
    return arc < shortestArc && arc > longestArc;
}

/// True when a search certainly finds both.
bool FastAstro::isSureToRiseAndSet(int day, int month, int year) {
    if (AstroGlobalFuncs::isAtChangeOfCalendar(year, month, day)) return false;
    const int firstHour = 1 - static_cast<int>(iPlace_.GMTValue);
    const HorizonForecast forecast = sunForecast(AstroGlobalFuncs::midnightBefore(year, month, day), firstHour - 1);
    bool rises = false, sets = false;
    for (int hour = firstHour; hour < firstHour + 23 && !(rises && sets); ++hour) {
        const Crossing crossing = forecast.at(hour);
        rises = rises || crossing == Crossing::rising;
        sets = sets || crossing == Crossing::setting;
    }
    return rises && sets;
}

void FastAstro::searchSunHours(int day, int month, int year, int firstHour, int endHour) {
    const HorizonForecast forecast = sunForecast(AstroGlobalFuncs::midnightBefore(year, month, day), firstHour - 1);
    for (int hour = firstHour; hour < endHour; ++hour) {
        const Crossing crossing = forecast.at(hour);
        if (crossing == Crossing::none) continue;
        // The next hour finds the same root, unless the search ends here.
        const bool goesOn = crossing == Crossing::rising ? !Sett_ : crossing == Crossing::setting && !Rise_;
        if (goesOn && hour + 1 < endHour && forecast.at(hour + 1) == crossing) continue;
        RiseSet(day, month, year, hour);
        if (Rise_ && Sett_) return;
    }
}

/// Sets the fields to what a search through all hours leaves when it does not find both.
void FastAstro::finishSunSearch(int day, int month, int year) {
    const int firstHour = 1 - static_cast<int>(iPlace_.GMTValue), endHour = firstHour + 23;
    int hour = endHour - 1;
    for (; hour > firstHour; --hour) {
        const double before = DX_;
        DX_ = std::nan("");
        RiseSet(day, month, year, hour);
        if (!std::isnan(DX_)) break;
        DX_ = before;
    }
    for (; hour < endHour; ++hour) RiseSet(day, month, year, hour);
}

void FastAstro::SunRiseSetTrans(const VAKDate& date, SunData& info) {
    SunRiseSet(date.Days, date.Months, date.Years);
    info.RiseTime = UTRise_;
    info.SetTime = UTSet_;
    const double midnight = AstroGlobalFuncs::CalculateJulianDay(date.Years, date.Months, date.Days, 0, 0, 0);
    info.EquationTime = EquationOfTime(midnight, info.RA);
    info.TransTime = 12.0 - info.EquationTime / 60.0 - Lon_ / 15.0;
}

}  // namespace quode
