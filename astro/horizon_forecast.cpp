// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/horizon_forecast.h"

#include <cmath>
#include <cstdint>

#include "astro/angles.h"

namespace quode {
namespace {

struct SinCos {
    double sine, cosine;
};

/// Of an angle in whole circles; good to 4e-7.
SinCos ofTurns(double turns) {
    constexpr double round = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to whole numbers
    const double shifted = turns * 4.0 + round;
    const double quarter = shifted - round;
    const double x = (turns * 4.0 - quarter) * 1.5707963267948966;
    const double x2 = x * x;
    const double s = x * (1.0 + x2 * (-1.0 / 6.0 + x2 * (1.0 / 120.0 - x2 * (1.0 / 5040.0))));
    const double c = 1.0 + x2 * (-0.5 + x2 * (1.0 / 24.0 + x2 * (-1.0 / 720.0 + x2 * (1.0 / 40320.0))));
    const auto q = static_cast<std::int64_t>(quarter);
    const double sine = (q & 1) ? c : s;
    const double cosine = (q & 1) ? s : c;
    return {(q & 2) ? -sine : sine, ((q + 1) & 2) ? -cosine : cosine};
}

SinCos operator+(const SinCos& a, const SinCos& b) {
    return {a.sine * b.cosine + a.cosine * b.sine, a.cosine * b.cosine - a.sine * b.sine};
}
SinCos operator-(const SinCos& a, const SinCos& b) {
    return {a.sine * b.cosine - a.cosine * b.sine, a.cosine * b.cosine + a.sine * b.sine};
}

/// A unit vector on the equator of date.
struct Direction {
    double x, y, z;
};

/// `FastAstro::SunDecRA` without nutation.
Direction sunAt(double T) {
    const double T2 = T * T;
    const SinCos m = ofTurns((357.52911376953125 + 35999.05078125 * T - 0.000155899994 * T2 - 4.8e-7 * T2 * T) / 360.0);
    const double sin2m = 2.0 * m.sine * m.cosine;
    const double sin3m = m.sine * (3.0 - 4.0 * m.sine * m.sine);
    const double centre =
        (1.9146 - 0.004817 * T - 1.4e-5 * T2) * m.sine + (0.019993 - 0.000101 * T) * sin2m + 0.00029 * sin3m;
    const SinCos longitude = ofTurns((280.4607711616 + 36000.76953125 * T + 0.0003032000095 * T2 + centre) / 360.0);
    const SinCos obliquity =
        ofTurns((23.4392901 - (46.814998627 * T + 0.00059 * T2 - 0.001813 * T2 * T) / 3600.0) / 360.0);
    return {longitude.cosine, obliquity.cosine * longitude.sine, obliquity.sine * longitude.sine};
}

/// `FastAstro::MoonDecRA` without the smallest terms of the latitude.
Direction moonAt(double T) {
    const double L0 = 0.6064329743385315 + 1336.855224609375 * T;
    const double turnsF = 0.259086012840271 + 1342.227783203125 * T;
    const SinCos l = ofTurns(0.3748970031738281 + 1325.5523681640625 * T);
    const SinCos ls = ofTurns(0.993133008480072 + 99.99736022949219 * T);
    const SinCos D = ofTurns(0.827360987663269 + 1236.85302734375 * T);
    const SinCos F = ofTurns(turnsF);
    const SinCos D2 = D + D, l2 = l + l, F2 = F + F, evection = l - D2;
    const double dL = 22640.0 * l.sine - 4586.0 * evection.sine + 2370.0 * D2.sine + 769.0 * l2.sine - 668.0 * ls.sine -
                      412.0 * F2.sine - 212.0 * (l2 - D2).sine - 206.0 * (evection + ls).sine + 192.0 * (l + D2).sine -
                      165.0 * (ls - D2).sine - 125.0 * D.sine - 110.0 * (l + ls).sine + 148.0 * (l - ls).sine -
                      55.0 * (F2 - D2).sine;
    const SinCos S = ofTurns(turnsF + (dL + 412.0 * F2.sine + 541.0 * ls.sine) / 1296000.0);
    const SinCos longitude = ofTurns(L0 + dL / 1296000.0);
    const SinCos latitude = ofTurns((18520.0 * S.sine - 526.0 * (F - D2).sine) / 1296000.0);
    constexpr double cosEpsilon = 0.9174820780754089, sinEpsilon = 0.39777716994285583;
    const double y = latitude.cosine * longitude.sine;
    return {latitude.cosine * longitude.cosine, y * cosEpsilon - latitude.sine * sinEpsilon,
            y * sinEpsilon + latitude.sine * cosEpsilon};
}

/// Sine and cosine of the angle by which the sky turns in a number of hours.
struct Turning {
    std::array<double, 25> sine, cosine;
};

Turning turningOfTheSky() {
    Turning turning{};
    for (std::size_t i = 0; i < turning.sine.size(); ++i) {
        const SinCos angle = ofTurns(static_cast<double>(i) * 1.0027378797531128 / 24.0);
        turning.sine[i] = angle.sine;
        turning.cosine[i] = angle.cosine;
    }
    return turning;
}

}  // namespace

HorizonForecast::SunDeclination HorizonForecast::sunDeclination(double julianDay) {
    const double sine = sunAt(centuriesFromJ2000(julianDay)).z;
    return {sine, std::sqrt(1.0 - sine * sine)};
}

HorizonForecast::HorizonForecast(Body body, double midnight, int firstHour, double sinLatitude, double cosLatitude,
                                 double longitude, double siderealTime, double sinDepth)
    : firstHour_(firstHour) {
    static const Turning turning = turningOfTheSky();
    const SinCos start =
        ofTurns((siderealTime + firstHour * 1.0027378797531128 + longitude * (1.0 / 15.0)) * (1.0 / 24.0));
    const double T = centuriesFromJ2000(midnight + firstHour * (1.0 / 24.0));
    constexpr double halfDay = 0.5 / 36525.0;
    // The direction as a parabola in time, i hours after the first.
    Direction a{}, b{}, c{};  // a + b i + c i i
    if (body == Body::sun) {
        a = sunAt(T);
        const Direction last = sunAt(T + 2.0 * halfDay);
        b = {(last.x - a.x) / 24.0, (last.y - a.y) / 24.0, (last.z - a.z) / 24.0};
    } else {
        a = moonAt(T);
        const Direction middle = moonAt(T + halfDay), last = moonAt(T + 2.0 * halfDay);
        const auto slope = [](double p, double q, double r) { return (4.0 * q - 3.0 * p - r) / 24.0; };
        const auto bend = [](double p, double q, double r) { return (p - 2.0 * q + r) / 288.0; };
        b = {slope(a.x, middle.x, last.x), slope(a.y, middle.y, last.y), slope(a.z, middle.z, last.z)};
        c = {bend(a.x, middle.x, last.x), bend(a.y, middle.y, last.y), bend(a.z, middle.z, last.z)};
    }
    for (std::size_t i = 0; i < heights_.size(); ++i) {
        const double hours = static_cast<double>(static_cast<int>(i));
        const double cosine = start.cosine * turning.cosine[i] - start.sine * turning.sine[i];
        const double sine = start.sine * turning.cosine[i] + start.cosine * turning.sine[i];
        const double x = a.x + (b.x + c.x * hours) * hours;
        const double y = a.y + (b.y + c.y * hours) * hours;
        const double z = a.z + (b.z + c.z * hours) * hours;
        heights_[i] = cosLatitude * (cosine * x + sine * y) + sinLatitude * z + sinDepth;
    }
}

}  // namespace quode
