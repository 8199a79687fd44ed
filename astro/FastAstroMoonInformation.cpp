// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Rise and set of the Moon, and the records of Sun and Moon at a moment.
#include <cmath>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/angles.h"
#include "astro/horizon_forecast.h"

namespace quode {
namespace {

constexpr double oneHour = 0.0416666679084301;            // days, in single precision
constexpr double sinMoonHorizon = 0.0023265217863302867;  // sine of 8 arc minutes: parallax less refraction and disc
constexpr double oneMinute = 0.0006944444612599909;       // days, in single precision
constexpr double earthRadius = 6378.13720703125;          // km
constexpr double kilometresPerUnit = 149597872.0;
constexpr double sunDiameter = 1392000.0;  // km
constexpr double singlePi = 3.1415927410125732;

/// Universal hours of a record's time of day; every step rounded to single precision.
double universalHours(const VAKDate& date) {
    const auto hours = static_cast<float>(date.Hours);
    const auto minutes = static_cast<float>(date.Minutes);
    const auto seconds = static_cast<float>(date.Seconds);
    return hours + minutes / 60.0f + seconds / 3600.0f;
}

/// Shadow of a gnomon of length 1, to two decimals; 0 where the Sun stands exactly on the horizon.
double shadowLength(double altitude) {
    const double slope = tanDeg(altitude);
    return slope == 0.0 ? 0.0 : AstroGlobalFuncs::Round(100.0 / slope, 0) / 100.0;
}

/// The date with the time of day of decimal hours, each unit truncated in turn.
VAKDate atHours(VAKDate date, double hours) {
    date.Hours = static_cast<int>(hours);
    const double minutes = (hours - date.Hours) * 60.0;
    date.Minutes = static_cast<int>(minutes);
    date.Seconds = static_cast<int>((minutes - date.Minutes) * 60.0);
    return date;
}

double intoDay(double hours) {
    if (hours < 0.0) hours += 24.0;
    if (hours >= 24.0) hours -= 24.0;
    return hours;
}

double raisedFromBelowZero(double hours) {
    return hours < 0.0 ? hours + 24.0 : hours;
}

}  // namespace

/// part: 0, 1 or 2 for the hour before, the hour and the hour after, whose Julian days differ in the last digits.
double FastAstro::sinElevOfMoon(double julianDay, int part) {
    if (shared_ == nullptr) {
        MoonDecRA(julianDay);
        return sinElevOf(GM_Sidereal_Time(julianDay), sinDeg(MoonDec_), cosDeg(MoonDec_), MoonRA_);
    }
    MoonMoment& known = shared_->moonMoments.at(std::lround(julianDay * 24.0) * 3 + part);
    if (known.julianDay == julianDay) {
        L_Moon_ = known.longitude;
        B_Moon_ = known.latitude;
        MoonDec_ = known.declination;
        MoonRA_ = known.rightAscension;
        MoonGHA_ = known.hourAngle;
    } else {
        MoonDecRA(julianDay);
        known = {julianDay,        L_Moon_,          B_Moon_,
                 MoonDec_,         MoonRA_,          MoonGHA_,
                 sinDeg(MoonDec_), cosDeg(MoonDec_), GM_Sidereal_Time(julianDay)};
    }
    return sinElevOf(known.siderealTime, known.sinDeclination, known.cosDeclination, known.rightAscension);
}

MoonHour FastAstro::computeMoonHour(double julianDay) {
    const auto heightAt = [&](double moment, int part) { return sinElevOfMoon(moment, part) - sinMoonHorizon; };
    MoonHour hour{julianDay, Lat_, Lon_};
    hour.before = heightAt(julianDay - oneHour, 0);
    hour.middle = heightAt(julianDay, 1);
    hour.after = heightAt(julianDay + oneHour, 2);
    hour.L_Moon = L_Moon_;
    hour.B_Moon = B_Moon_;
    hour.MoonDec = MoonDec_;
    hour.MoonRA = MoonRA_;
    hour.MoonGHA = MoonGHA_;
    return hour;
}

const MoonHour& FastAstro::moonHour(double julianDay, int hour) {
    MoonHour& known = moonHours_.at(hour);
    if (known.julianDay == julianDay && known.Lat == Lat_ && known.Lon == Lon_) {
        L_Moon_ = known.L_Moon;
        B_Moon_ = known.B_Moon;
        MoonDec_ = known.MoonDec;
        MoonRA_ = known.MoonRA;
        MoonGHA_ = known.MoonGHA;
    } else {
        known = computeMoonHour(julianDay);
    }
    return known;
}

void FastAstro::MoonRiseSet(int day, int month, int year, int hour) {
    if (hour < 0) {
        hour += 24;
        --day;
    } else if (hour >= 24) {
        hour -= 24;
        ++day;
    }
    const MoonHour& moon = moonHour(AstroGlobalFuncs::CalculateJulianDay(year, month, day, hour, 0, 0), hour);
    const int roots = Quad(moon.before, moon.after, moon.middle);
    if (roots == 1) {
        (moon.before < 0.0 ? MoonRise_ : MoonSet_) = hour + Zero1_;
    } else if (roots == 2) {
        MoonRise_ = hour + (YE_ < 0.0 ? Zero2_ : Zero1_);
        MoonSet_ = hour + (YE_ < 0.0 ? Zero1_ : Zero2_);
    }
}

/// The forecast for the Moon of a civil day; nothing next to the change of the calendar, where hours are not consecutive.
std::optional<HorizonForecast> FastAstro::moonForecast(int day, int month, int year) {
    if (AstroGlobalFuncs::isAtChangeOfCalendar(year, month, day)) return std::nullopt;
    const double midnight = AstroGlobalFuncs::midnightBefore(year, month, day);
    const LatitudeTrig& observer = latitudeTrig();
    return HorizonForecast(HorizonForecast::Body::moon, midnight, -static_cast<int>(iPlace_.GMTValue), observer.sine,
                           observer.cosine, Lon_, GM_Sidereal_Time(midnight), -sinMoonHorizon);
}

void FastAstro::searchMoonHours(int day, int month, int year, const std::optional<HorizonForecast>& forecast,
                                bool forRise) {
    const int first = 1 - static_cast<int>(iPlace_.GMTValue), end = first + 23;
    const double& wanted = forRise ? MoonRise_ : MoonSet_;
    const Crossing other = forRise ? Crossing::setting : Crossing::rising;
    for (int hour = first; hour < end; ++hour) {
        if (forecast) {
            const Crossing crossing = forecast->at(hour);
            if (crossing == Crossing::none) continue;
            // The next hour finds the same crossing.
            if (crossing == other && hour + 1 < end && forecast->at(hour + 1) == other) continue;
        }
        MoonRiseSet(day, month, year, hour);
        if (wanted != missingMoonTime) return;
    }
    if (forecast) finishMoonSearch(day, month, year, first, end);
}

/// Sets the fields to what a search through all hours leaves when it finds nothing.
void FastAstro::finishMoonSearch(int day, int month, int year, int first, int end) {
    int hour = end - 1;
    for (; hour > first; --hour) {
        const double before = DX_;
        DX_ = std::nan("");
        MoonRiseSet(day, month, year, hour);
        if (!std::isnan(DX_)) break;
        DX_ = before;
    }
    for (; hour < end; ++hour) MoonRiseSet(day, month, year, hour);
}

void FastAstro::MoonRiseTime(int day, int month, int year) {
    MoonRise_ = missingMoonTime;
    searchMoonHours(day, month, year, moonForecast(day, month, year), true);
}

void FastAstro::MoonSetTime(int day, int month, int year) {
    MoonSet_ = missingMoonTime;
    searchMoonHours(day, month, year, moonForecast(day, month, year), false);
}

/// `MoonRiseTime` and `MoonSetTime`, one after the other.
void FastAstro::searchMoonRiseAndSet(int day, int month, int year) {
    const auto forecast = moonForecast(day, month, year);
    MoonRise_ = missingMoonTime;
    // The second search overwrites the first one's result when it finds a rise before the set.
    if (!forecast || !risesBeforeItSets(*forecast)) searchMoonHours(day, month, year, forecast, true);
    MoonSet_ = missingMoonTime;
    searchMoonHours(day, month, year, forecast, false);
}

bool FastAstro::risesBeforeItSets(const HorizonForecast& forecast) const {
    const int first = 1 - static_cast<int>(iPlace_.GMTValue);
    for (int hour = first; hour < first + 23; ++hour) {
        const Crossing crossing = forecast.at(hour);
        if (crossing == Crossing::none) continue;
        return crossing == Crossing::rising;
    }
    return false;
}

double FastAstro::MoonTransTime(int day, int month, int year) {
    // The last moment of the search, 121 minutes after 23 h, is the result whatever the altitudes are.
    constexpr double lastMoment = 23.0 + 2.0166666666666666;
    int hour = 0, minute = 0, second = 0;
    AstroGlobalFuncs::ToHMS(lastMoment, hour, minute, second);
    MoonTrueAltitude(AstroGlobalFuncs::CalculateJulianDay(year, month, day, hour, minute, second));
    return lastMoment;
}

void FastAstro::MoonRiseSetTrans(const VAKDate& date, MoonInfo& moon) {
    searchMoonRiseAndSet(date.Days, date.Months, date.Years);
    moon.RiseTime = MoonRise_;
    moon.TransTime = MoonTransTime(date.Days, date.Months, date.Years);
    moon.SetTime = MoonSet_;
}

void FastAstro::takeMoonCoordinates() {
    Moon_.Dec = MoonDec_;
    Moon_.RA = MoonRA_;
    Moon_.GHA = MoonGHA_;
    Moon_.Distance = MoonDist_;
}

void FastAstro::takeMoonSiderealTime(double julianDay) {
    SRT_ = MoonSideRealTime(julianDay) * degree / 240.0 * 3.819718599319458;
    Moon_.SideRealTime = raisedFromBelowZero(SRT_);
}

MoonInfo FastAstro::MoonInformation(const VAKDate& date, double latitude, double longitude) {
    SetLatLon(latitude, longitude);
    CalculateTLong();
    const double julianDay = AstroGlobalFuncs::JulianDay(date);
    MoonDecRAAccurate(julianDay);
    takeMoonCoordinates();
    takeMoonSiderealTime(julianDay);
    MoonAltitudeAzimuth(Moon_.AppAlt, Moon_.Azimuth);
    Moon_.TrueAlt = MoonTrueAltitude(julianDay);
    const double sineOfParallax = earthRadius / Moon_.Distance;
    Moon_.HorParal = std::asin(sineOfParallax) * degreesPerRadian;
    Moon_.Diameter = (0.2724530100822449 * sineOfParallax + 3.873661000852735e-7) * degreesPerRadian;
    Moon_.Elongation = MoonElongation(julianDay);
    const double now = Phase(centuriesFromJ2000(julianDay));
    const double before = Phase(centuriesFromJ2000(julianDay - oneMinute));
    Moon_.BrightInc = now > before;
    Moon_.IlluminatedFraction = AstroGlobalFuncs::Round(now * 100.0, 0);
    return Moon_;
}

void FastAstro::fillMoonDirection(const VAKDate& date, bool localTime, DirectionInfo& info) {
    const double julianDay = AstroGlobalFuncs::JulianDay(date);
    searchMoonRiseAndSet(date.Days, date.Months, date.Years);
    Moon_.RiseTime = MoonRise_;
    Moon_.SetTime = MoonSet_;
    if (localTime) {
        SetLocalTime(Moon_.RiseTime, date);
        SetLocalTime(Moon_.SetTime, date);
    }
    Moon_.TrueAlt = MoonTrueAltitude(julianDay);
    Moon_.AppAlt = MoonAppAltitude(date);
    Moon_.Azimuth = MoonAzimuth(MoonDec_, MoonGHA_, Moon_.TrueAlt);
    info.MoonRise = Moon_.RiseTime;
    info.MoonSet = Moon_.SetTime;
    info.MoonAzimuth = Moon_.Azimuth;
    info.MoonAltitude = Moon_.AppAlt;
    info.MoonElongation = MoonElongation(julianDay);
}

void FastAstro::MoonInformationForDirection(const VAKDate& date, DirectionInfo& info) {
    fillMoonDirection(date, true, info);
}

void FastAstro::MoonInformationForDirectionWithoutLocalTime(const VAKDate& date, DirectionInfo& info) {
    fillMoonDirection(date, false, info);
}

void FastAstro::MoonInformationforCrescent(const VAKDate& date, int dayOffset, CrescentInfo& info) {
    CalculateTLong();
    const double julianDay = AstroGlobalFuncs::CalculateJulianDay(date.Years, date.Months, date.Days + dayOffset,
                                                                  date.Hours, date.Minutes, date.Seconds);
    VAKDate moved;
    AstroGlobalFuncs::JulianToCalendar(julianDay, moved, true);
    MoonDecRA(julianDay);
    takeMoonCoordinates();
    takeMoonSiderealTime(julianDay);
    Moon_.AppAlt = MoonAppAltitude(moved);
    info.MoonAltitude = Moon_.AppAlt;
    info.MoonElongation = MoonElongation(julianDay);
}

void FastAstro::takeSunriseAndSunset(const VAKDate& date) {
    SunRiseSet(date.Days, date.Months, date.Years);
    Sun_.RiseTime = UTRise_;
    Sun_.SetTime = UTSet_;
    SetLocalTime(Sun_.RiseTime, date);
    SetLocalTime(Sun_.SetTime, date);
}

void FastAstro::takeSunDirection(const VAKDate& date) {
    Sun_.GHA = ComputeGHA(date.Days, date.Months, date.Years, universalHours(date));
    Sun_.Alt = SunAltitude(Sun_.Dec, Sun_.GHA);
    Sun_.Azimuth = SunAzimuth(Sun_.Dec, Sun_.GHA, Sun_.Alt);
}

SunData FastAstro::SunInformation(const VAKDate& date, double latitude, double longitude) {
    SetLatLon(latitude, longitude);
    const double julianDay = AstroGlobalFuncs::JulianDay(date);
    SunDecRAAccurate(julianDay);
    Sun_.Dec = SunDec_;
    Sun_.RA = SunRA_;
    Sun_.Distance = SunDistance_;
    Sun_.SideRealTime = raisedFromBelowZero(LMST(julianDay - 2400000.5, longitude));
    takeSunriseAndSunset(date);
    Sun_.EquationTime = EquationOfTime(julianDay, Sun_.RA);
    Sun_.TransTime = 12.0 - Sun_.EquationTime / 60.0 - longitude / 15.0;
    takeSunDirection(date);
    const double diameter = std::atan(sunDiameter / (Sun_.Distance * kilometresPerUnit)) * 180.0 / singlePi;
    Sun_.Diameter = AstroGlobalFuncs::Round(diameter * 6000.0, 0) / 100.0;
    Sun_.Shadow = shadowLength(Sun_.Alt);
    return Sun_;
}

void FastAstro::SunInformationForDirection(const VAKDate& date, DirectionInfo& info) {
    SunDecRAAccurate(AstroGlobalFuncs::JulianDay(date));
    Sun_.Dec = SunDec_;
    Sun_.RA = SunRA_;
    takeSunriseAndSunset(date);
    takeSunDirection(date);
    info.SunRise = Sun_.RiseTime;
    info.SunSet = Sun_.SetTime;
    info.SunAzimuth = Sun_.Azimuth;
    info.SunAltitude = Sun_.Alt;
}

void FastAstro::SunInformationForCrescent(const VAKDate& date, CrescentInfo& info) {
    SunRiseSet(date.Days, date.Months, date.Years);
    info.SunRise = UTRise_;
    info.SunSet = UTSet_;
}

WidgetSkyInfo FastAstro::getSomeInfoForQuodeWidget() {
    const VAKDate& today = iCurrentDate_;
    const double zone = iPlace_.GMTValue;
    SunRiseSet(today.Days, today.Months, today.Years);
    searchMoonRiseAndSet(today.Days, today.Months, today.Years);

    WidgetSkyInfo sky{UTRise_, UTSet_, raisedFromBelowZero(MoonRise_ + zone), raisedFromBelowZero(MoonSet_ + zone),
                      missingMoonTime};
    if (UTRise_ == missingTime || UTSet_ == missingTime) return sky;
    sky.MoonAltitudeOnSunSet = MoonAppAltitude(atHours(today, UTSet_));
    sky.SunRise = intoDay(UTRise_ + zone);
    sky.SunSet = intoDay(UTSet_ + zone);
    return sky;
}

}  // namespace quode
