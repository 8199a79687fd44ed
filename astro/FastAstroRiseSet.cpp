// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The search for sunrise and sunset, and the transit.
#include <cmath>
#include <cstdint>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/angles.h"

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

FastAstro::SunHour FastAstro::computeSunHour(double julianDay) {
    SunDecRA(julianDay);
    return {julianDay,         Lat_, Lon_, SinElev(julianDay, Lat_, -Lon_, SunDec_, SunRA_), SunDec_, SunRA_,
            EclipticLongitude_};
}

double FastAstro::sinElevOfSun(double julianDay) {
    const auto wholeHours = static_cast<std::uint64_t>(std::llround(julianDay * 24.0));
    SunHour& known = sunHours_[wholeHours % sunHours_.size()];
    if (known.julianDay == julianDay && known.Lat == Lat_ && known.Lon == Lon_) {
        SunDec_ = known.SunDec;
        SunRA_ = known.SunRA;
        EclipticLongitude_ = known.EclipticLongitude;
    } else {
        known = computeSunHour(julianDay);
    }
    return known.sinElev;
}

void FastAstro::RiseSet(int day, int month, int year, int hour) {
    if (hour >= 24) {
        hour -= 24;
        ++day;
    } else if (hour < 0) {
        hour += 24;
        --day;
    }
    const auto heightAt = [&](int h) {
        return sinElevOfSun(AstroGlobalFuncs::CalculateJulianDay(year, month, day, h, 0, 0)) + sinHorizonDepth;
    };
    const double middle = heightAt(hour);
    const double after = heightAt(hour + 1);
    const double before = heightAt(hour - 1);
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
    Rise_ = Sett_ = false;
    UTRise_ = UTSet_ = missingTime;
    const int zone = static_cast<int>(iPlace_.GMTValue);
    for (int hour = 1 - zone; hour < 24 - zone && !(Rise_ && Sett_); ++hour) RiseSet(day, month, year, hour);
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
