// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The place of the Moon: coordinates, distance, parallax, altitude, azimuth, elongation and phase.
#include <algorithm>
#include <cmath>

#include "astro/AstroGlobalFuncs.h"
#include "astro/EarthCompute.h"
#include "astro/FastAstro.h"
#include "astro/MoonCompute.h"
#include "astro/angles.h"

namespace quode {
namespace {

constexpr double twoPi = 6.2831854820251465;
constexpr double arcSecondsPerRadian = 206264.8125;
constexpr double kilometresPerUnit = 149597872.0;
constexpr double radiansPerHour = 0.2617993950843811;

/// A sine or cosine clamped to -1..1, which rounding may exceed.
double unit(double x) {
    return std::clamp(x, -1.0, 1.0);
}

double fractionOfCircle(double turns) {
    return twoPi * AstroGlobalFuncs::frac(turns);
}

/// The angle moved into 0..`circle` by whole circles.
double wrapped(double angle, double circle) {
    while (angle < 0.0) angle += circle;
    while (angle > circle) angle -= circle;
    return angle;
}

/// Ecliptic longitude and latitude of the Moon, radians, from its largest terms.
void eclipticMoon(double T, double& longitude, double& latitude) {
    using std::sin;
    const double L0 = AstroGlobalFuncs::frac(0.6064329743385315 + 1336.855224609375 * T);
    const double l = fractionOfCircle(0.3748970031738281 + 1325.5523681640625 * T);
    const double ls = fractionOfCircle(0.993133008480072 + 99.99736022949219 * T);
    const double D = fractionOfCircle(0.827360987663269 + 1236.85302734375 * T);
    const double F = fractionOfCircle(0.259086012840271 + 1342.227783203125 * T);
    const double sin2F = sin(2.0 * F), sinls = sin(ls);
    const double dL = 22640.0 * sin(l) - 4586.0 * sin(l - 2.0 * D) + 2370.0 * sin(2.0 * D) + 769.0 * sin(2.0 * l) -
                      668.0 * sinls - 412.0 * sin2F - 212.0 * sin(2.0 * l - 2.0 * D) - 206.0 * sin(l + ls - 2.0 * D) +
                      192.0 * sin(l + 2.0 * D) - 165.0 * sin(ls - 2.0 * D) - 125.0 * sin(D) - 110.0 * sin(l + ls) +
                      148.0 * sin(l - ls) - 55.0 * sin(2.0 * F - 2.0 * D);
    const double S = F + (dL + 412.0 * sin2F + 541.0 * sinls) / arcSecondsPerRadian;
    const double h = F - 2.0 * D;
    const double N = -526.0 * sin(h) + 44.0 * sin(l + h) - 31.0 * sin(h - l) - 23.0 * sin(ls + h) + 11.0 * sin(h - ls) -
                     25.0 * sin(F - 2.0 * l) + 21.0 * sin(F - l);
    longitude = fractionOfCircle(L0 + dL / 1296000.0);
    latitude = (18520.0 * sin(S) + N) / arcSecondsPerRadian;
}

}  // namespace

void FastAstro::MoonDecRA(double julianDay) {
    eclipticMoon(centuriesFromJ2000(julianDay), L_Moon_, B_Moon_);
    constexpr double cosEpsilon = 0.9174820780754089;
    constexpr double sinEpsilon = 0.39777716994285583;
    const double x = std::cos(B_Moon_) * std::cos(L_Moon_);
    const double eclipticY = std::cos(B_Moon_) * std::sin(L_Moon_);
    const double eclipticZ = std::sin(B_Moon_);
    const double y = eclipticY * cosEpsilon - eclipticZ * sinEpsilon;
    const double z = eclipticY * sinEpsilon + eclipticZ * cosEpsilon;
    const double rho = std::sqrt(1.0 - z * z);
    MoonDec_ = std::atan2(z, rho) * degreesPerRadian;
    MoonRA_ = 7.639437198638916 * std::atan2(y, x + rho);
    finishMoonCoordinates(julianDay);
}

void FastAstro::MoonDecRAAccurate(double julianDay) {
    MoonCompute::Moon_Coordinate(julianDay, MoonDec_, MoonRA_, MoonDist_);
    finishMoonCoordinates(julianDay);
}

void FastAstro::finishMoonCoordinates(double julianDay) {
    MoonGHA_ = wrapped(15.0 * (LMST(julianDay - 2400000.5, 0.0) - MoonRA_), 360.0);
    MoonRA_ = wrapped(MoonRA_, 24.0);
    if (MoonRA_ == 24.0) MoonRA_ = 0.0;
}

double FastAstro::LMST(double modifiedJulianDay, double longitude) {
    const double T = (modifiedJulianDay - 51544.5) / 36525.0;
    const double polynomial = 8640185.0 * T + 0.09310399740934372 * T * T - 6.199999916134402e-6 * T * T * T;
    return 24.0 * AstroGlobalFuncs::frac((6.69737434387207 +
                                          1.0027378797531128 * 24.0 * AstroGlobalFuncs::frac(modifiedJulianDay) +
                                          polynomial / 3600.0 + longitude / 15.0) /
                                         24.0);
}

double FastAstro::MoonSideRealTime(double julianDay) const {
    const double wholeDay = std::trunc(julianDay);
    const double fraction = julianDay - wholeDay;
    const bool beforeMidnight = fraction < 0.5;
    const double midnight = beforeMidnight ? wholeDay - 0.5 : wholeDay + 0.5;
    const double sinceMidnight = beforeMidnight ? fraction + 0.5 : fraction - 0.5;
    const double T = centuriesFromJ2000(midnight);
    const double T2 = T * T, T3 = T2 * T, T4 = T3 * T;
    const double atMidnight = 24110.548828125 + 8640185.0 * T + 0.09277009963989258 * T2 - 3.000000106112566e-7 * T3 -
                              1.9999999949504854e-6 * T4;
    const double rate =
        1.0 + (8640185.0 + 0.18554019927978516 * T - 9.000000318337698e-7 * T2 - 7.999999979801942e-6 * T3) /
                  3155760.0 / 1000.0;
    const double seconds = atMidnight + sinceMidnight * 86400.0 * rate + 240.0 * Lon_;
    return seconds - static_cast<float>(86400.0 * std::trunc(seconds / 86400.0));
}

double FastAstro::MoonDistance(double julianDay) {
    const double T = (julianDay - 2415020.0) / 36525.0;
    const double T2 = T * T;
    const double Mp = 296.1046142578125 + 477000.0 * T + 198.84910583496094 * T + 0.009192000143229961 * T2;
    const double moonLongitude = 270.4341735839844 + 480960.0 * T + 307.8831481933594 * T - 0.001133000012487173 * T2;
    const double sunLongitude = 279.6966857910156 + 36000.0 * T + 0.7689250111579895 * T + 0.00030300000798888505 * T2;
    const double D = moonLongitude - sunLongitude;
    const double parallax = 3423.0 + 187.0 * cosDeg(Mp) + 10.0 * cosDeg(2.0 * Mp) + 34.0 * cosDeg(2.0 * D - Mp) +
                            28.0 * cosDeg(2.0 * D) + 3.0 * cosDeg(Mp + 2.0 * D);
    return 6378.14013671875 / sinDeg(parallax / 3600.0);
}

double FastAstro::MoonParallax(double altitude, double distance) {
    const double parallax = 8.793999671936035 / (distance / kilometresPerUnit);
    return std::asin(unit(cosDeg(altitude) * sinDeg(parallax / 3600.0))) * degreesPerRadian;
}

double FastAstro::MoonTrueAltitude(double julianDay) {
    MoonDecRA(julianDay);
    double hourAngle = 15.0 * (LMST(julianDay - 2400000.5, Lon_) - MoonRA_);
    if (hourAngle < 0.0) hourAngle += 360.0;
    const double sine = cosDeg(Lat_) * cosDeg(MoonDec_) * cosDeg(hourAngle) + sinDeg(Lat_) * sinDeg(MoonDec_);
    MoonAlt_ = std::asin(unit(sine)) * degreesPerRadian;
    return MoonAlt_;
}

double FastAstro::MoonAppAltitude(const VAKDate& date) {
    const double julianDay = AstroGlobalFuncs::JulianDay(date);
    MoonDecRA(julianDay);
    const double altitude = SunElev(julianDay, Lat_, -Lon_, MoonDec_, MoonRA_);
    const double distance =
        MoonDistance(AstroGlobalFuncs::CalculateJulianDay(date.Years, date.Months, date.Days, 12, 0, 0));
    const double lowered = altitude - MoonParallax(altitude, distance);
    return lowered + Refract(lowered) / 60.0;
}

void FastAstro::CalculateTLong() {
    const double cosLat = cosDeg(Lat_), sinLat = sinDeg(Lat_);
    const double cosSquared = cosLat * cosLat, sinSquared = sinLat * sinLat;
    const double C = 1.0 / std::sqrt(cosSquared + 0.9933055996612872 * sinSquared);
    const double A = 6378137.0 * C;
    const double B = 6335439.197506843 * C;
    const double radius = std::sqrt(sinSquared * (B * B) + cosSquared * (A * A));
    tLat_ = std::acos(unit(cosLat * A / radius)) * degreesPerRadian;
    if (Lat_ < 0.0) tLat_ = -tLat_;
    trho_ = radius / 6378137.0;
}

void FastAstro::DiurnalAberration(double& rightAscension, double& declination, double siderealAngle) const {
    const double k = 1.5471999859073549e-6 * trho_ * cosDeg(tLat_);
    const double hourAngle = siderealAngle - rightAscension;
    const double cosDec = std::cos(declination);
    if (cosDec != 0.0) rightAscension += k * std::cos(hourAngle) / cosDec;
    declination += k * std::sin(hourAngle) * std::sin(declination);
}

void FastAstro::DiurnalParallax(double& rightAscension, double& declination, double siderealAngle,
                                double distance) const {
    if (distance > 1758.800048828125) return;
    const double radii = distance * kilometresPerUnit / 6378.13720703125;
    const double cosDec = std::cos(declination);
    const double observerX = trho_ * cosDeg(tLat_), observerZ = trho_ * sinDeg(tLat_);
    const double x = radii * cosDec * std::cos(rightAscension) - observerX * std::cos(siderealAngle);
    const double y = radii * cosDec * std::sin(rightAscension) - observerX * std::sin(siderealAngle);
    const double z = radii * std::sin(declination) - observerZ;
    const double length = std::sqrt(x * x + y * y + z * z);
    if (length == 0.0) return;
    rightAscension = AstroGlobalFuncs::ZArcTan2(x, y);
    declination = std::asin(unit(z / length));
}

void FastAstro::MoonAltitudeAzimuth(double& altitude, double& azimuth) const {
    double rightAscension = Moon_.RA * radiansPerHour;
    double declination = Moon_.Dec * degree;
    const double siderealAngle = Moon_.SideRealTime * radiansPerHour;
    DiurnalAberration(rightAscension, declination, siderealAngle);
    DiurnalParallax(rightAscension, declination, siderealAngle, Moon_.Distance / kilometresPerUnit);

    const double hourAngle = siderealAngle - rightAscension;
    const double cosLat = cosDeg(Lat_), sinLat = sinDeg(Lat_);
    const double cosDec = std::cos(declination), sinDec = std::sin(declination);
    const double north = sinDec * cosLat - cosDec * std::cos(hourAngle) * sinLat;
    const double east = -cosDec * std::sin(hourAngle);
    azimuth = AstroGlobalFuncs::ZArcTan2(north, east) * degreesPerRadian;
    altitude = std::asin(unit(cosDec * std::cos(hourAngle) * cosLat + sinDec * sinLat)) * degreesPerRadian;
}

double FastAstro::MoonAzimuth(double declination, double greenwichHourAngle, double altitude) const {
    const double horizontal = cosDeg(altitude) * cosDeg(Lat_);
    if (std::abs(horizontal) < smallestHorizontal) return noDirection;
    const double cosine = (sinDeg(declination) - sinDeg(Lat_) * sinDeg(altitude)) / horizontal;
    const double angle = std::acos(unit(cosine)) * degreesPerRadian;
    return sinDeg(Lon_ + greenwichHourAngle) > 0.0 ? 360.0 - angle : angle;
}

double FastAstro::MoonLambda(double longitudeRad) {
    double longitude = longitudeRad / degree;
    if (longitude < -360.0) longitude = std::fmod(longitude, 360.0);
    return longitude < 0.0 ? longitude + 360.0 : longitude;
}

double FastAstro::MoonElongation(double julianDay) {
    MoonDecRA(julianDay);
    const double moonLongitude = MoonLambda(L_Moon_);
    const auto [L, B, R] = EarthCompute::place(julianDay);
    const double x = -R * std::cos(B) * std::cos(L);
    const double y = -R * std::cos(B) * std::sin(L);
    double sunLongitude = std::atan2(y, x) * degreesPerRadian;
    if (sunLongitude < 0.0) sunLongitude += 360.0;
    return std::acos(unit(std::cos(B_Moon_) * cosDeg(sunLongitude - moonLongitude))) * degreesPerRadian;
}

double FastAstro::Phase(double T) {
    const double T2 = T * T, T3 = T2 * T, T4 = T3 * T;
    const double D =
        297.8501892089844 + 445267.125 * T - 0.0016299999551847577 * T2 + 1.831944700825261e-6 * T3 - T4 / 113065000.0;
    const double M = 357.52911376953125 + 35999.05078125 * T - 0.00015360000543296337 * T2 + 4.083299387502848e-8 * T3;
    const double Mp =
        134.96340942382812 + 477198.875 * T + 0.008996999822556973 * T2 + 1.4347408068715595e-5 * T3 - T4 / 14712000.0;
    const double angle = 180.0 - D - 6.289000034332275 * sinDeg(Mp) + 2.0999999046325684 * sinDeg(M) -
                         1.2740000486373901 * sinDeg(2.0 * D - Mp) - 0.6579999923706055 * sinDeg(2.0 * D) -
                         0.21400000154972076 * sinDeg(2.0 * Mp) - 0.10999999940395355 * sinDeg(D);
    return (1.0 + cosDeg(angle)) / 2.0;
}

double FastAstro::ToDeg(double angle) {
    const double reduced = angle - static_cast<float>(360.0 * std::trunc(angle / 360.0));
    return reduced < 0.0 ? reduced + 360.0 : reduced;
}

double FastAstro::ComputeGHA(int day, int month, int year, double universalTime) {
    int days = day + 31 * month + 365 * year - 46;
    if (month > 2) {
        days += year / 4 - static_cast<int>(0.4 * month + 2.3);
    } else {
        days += (year - 1) / 4;
    }
    const double t = ((days - 722449 + universalTime / 24.0) * 0.9856473207473755 + 279.3059997558594) * degree;
    const double equation = -104.55 * std::sin(t) - 429.2659912109375 * std::cos(t) +
                            595.6300048828125 * std::sin(2.0 * t) - 2.2829999923706055 * std::cos(2.0 * t) +
                            4.599999904632568 * std::sin(3.0 * t) + 18.733299255371094 * std::cos(3.0 * t) +
                            13.199999809265137 * std::sin(-4.0 * t) - std::cos(5.0 * t) - std::sin(5.0 * t) / 3.0 +
                            0.5 * std::sin(6.0 * t) + 0.23100000619888306;
    const double angle = (universalTime / 24.0 + 0.5) * 360.0 + equation / 240.0;
    return angle > 360.0 ? angle - 360.0 : angle;
}

}  // namespace quode
