// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/MagneticVariation.h"

#include <algorithm>
#include <cmath>

#include "astro/SeriesTables.h"
#include "astro/angles.h"

namespace quode {
namespace {

constexpr int targetNow = 3;

constexpr double equatorialRadius2 = 40680924.0;  // km^2, IAU 1966
constexpr double polarRadius2 = 40408588.0;
constexpr double referenceRadius = 6371.2001953125;  // km
constexpr double lastLatitude = 89.9990005493164;

/// Where the synthesis is made: geocentric latitude and radius, and the angle between the two verticals.
struct Station {
    double sinLatitude, cosLatitude, radius;
    double cosTilt = 1.0, sinTilt = 0.0;
};

Station stationAt(bool geodetic, double latitude, double altitude) {
    double s = sinDeg(latitude);
    double c = cosDeg(std::clamp(latitude, -lastLatitude, lastLatitude));
    if (!geodetic) return {s, c, altitude};
    const double a = equatorialRadius2 * c * c;
    const double b = polarRadius2 * s * s;
    const double sum = a + b;
    const double root = std::sqrt(sum);
    const double radius =
        std::sqrt(altitude * (altitude + 2.0 * root) + (equatorialRadius2 * a + polarRadius2 * b) / sum);
    const double cosTilt = (altitude + root) / radius;
    const double sinTilt = (equatorialRadius2 - polarRadius2) / root * s * c / radius;
    return {s * cosTilt - c * sinTilt, c * cosTilt + s * sinTilt, radius, cosTilt, sinTilt};
}

/// Schmidt quasi-normalised functions P and their derivatives Q at a latitude, term by term in the order (1,0), (1,1),
/// (2,0), (2,1), (2,2), ... Each term builds on earlier ones.
class LegendreTerms {
  public:
    LegendreTerms(double sinLatitude, double cosLatitude) : s_(sinLatitude), c_(cosLatitude) {
        constexpr double root3 = 1.7320508075688772, root27 = 5.196152422706632;
        P = {2.0 * s_, 2.0 * c_, 4.5 * s_ * s_ - 1.5, root27 * c_ * s_};
        Q = {-c_, s_, -3.0 * c_ * s_, root3 * (s_ * s_ - c_ * c_)};
    }

    /// Computes term k, degree n and order m, from the fifth on.
    void extend(int k, int n, int m) {
        if (k < 4) return;
        const double fn = n, fm = m;
        double& p = P[static_cast<std::size_t>(k)];
        double& q = Q[static_cast<std::size_t>(k)];
        if (m == n) {
            const double a = std::sqrt(1.0 - 0.5 / fm);
            const auto diagonal = static_cast<std::size_t>(k - n - 1);
            p = (1.0 + 1.0 / fm) * a * c_ * P[diagonal];
            q = a * (c_ * Q[diagonal] + s_ / fm * P[diagonal]);
            return;
        }
        const double a = std::sqrt(fn * fn - fm * fm);
        const double b = std::sqrt((fn - 1.0) * (fn - 1.0) - fm * fm) / a;
        const double c = (2.0 * fn - 1.0) / a;
        const auto above = static_cast<std::size_t>(k - n);
        const auto twoAbove = static_cast<std::size_t>(k - 2 * n + 1);
        p = (fn + 1.0) * (c * s_ / fn * P[above] - b / (fn - 1.0) * P[twoAbove]);
        q = c * (s_ * Q[above] - c_ / fn * P[above]) - b * Q[twoAbove];
    }

    std::array<double, 104> P{}, Q{};

  private:
    double s_, c_;
};

}  // namespace

double MagneticVariation::Julday(int day, int month, int year) {
    constexpr std::array<int, 12> firstDays = {1, 32, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335};
    const int leap = year != 1900 && year != 2100 && year % 4 == 0 && month > 2 ? 1 : 0;
    const int first = firstDays[static_cast<std::size_t>(std::clamp(month, 1, 12) - 1)];
    return year + (day + leap + first - 1) / (leap == 1 ? 366.0 : 365.0);
}

double MagneticVariation::DegreesToDecimal(int degrees, int minutes, int seconds) {
    const float minutePart = std::abs(static_cast<float>(minutes) / 60.0f);
    const float secondPart = std::abs(static_cast<float>(seconds) / 3600.0f);
    const double decimal = std::abs(static_cast<double>(degrees)) + minutePart + secondPart;
    const bool negative = degrees < 0 || (degrees == 0 && minutes < 0) || (degrees == 0 && minutes == 0 && seconds < 0);
    return negative ? -decimal : decimal;
}

void MagneticVariation::ExtraPSH(double date, int mainFieldDegree, int changeFieldDegree, int target, double epoch) {
    using Row = tables::FieldCoefficient;
    const bool is2005 = epoch < modelEpoch;
    const auto field = is2005 ? &Row::main2005 : &Row::main2010;
    const auto change = is2005 ? &Row::change2005 : &Row::change2010;
    const int mainCount = std::min(mainFieldDegree * (mainFieldDegree + 2), coefficientCount);
    const int changeCount = std::min(changeFieldDegree * (changeFieldDegree + 2), mainCount);
    const double years = date - epoch;
    Coefficients& coefficients = target == targetNow ? gha_ : ghb_;
    for (int i = 0; i < mainCount; ++i) {
        const Row& row = tables::geomagnetic_field[i];
        coefficients[static_cast<std::size_t>(i)] = i < changeCount ? row.*field + years * row.*change : row.*field;
    }
}

FieldComponents MagneticVariation::SHVAL3(int coordinateSystem, int maximumDegree, int target, double latitude,
                                          double longitude, double altitude) {
    const Station station = stationAt(coordinateSystem == 1, latitude, altitude);
    const double ratio = referenceRadius / station.radius;
    const Coefficients& coefficients = target == targetNow ? gha_ : ghb_;
    LegendreTerms terms(station.sinLatitude, station.cosLatitude);
    std::array<double, mainDegree + 1> sines{}, cosines{};
    sines[1] = sinDeg(longitude);
    cosines[1] = cosDeg(longitude);

    FieldComponents field;
    std::size_t next = 0;  // coefficient
    int k = 0;             // term
    for (int n = 1; n <= std::min(maximumDegree, mainDegree); ++n) {
        const double scale = std::pow(ratio, n + 2);
        for (int m = 0; m <= n; ++m, ++k) {
            terms.extend(k, n, m);
            const double p = terms.P[static_cast<std::size_t>(k)];
            const double q = terms.Q[static_cast<std::size_t>(k)];
            const double g = scale * coefficients[next++];
            if (m == 0) {
                field.north += g * q;
                field.down -= g * p;
                continue;
            }
            const auto i = static_cast<std::size_t>(m);
            if (m > 1 && m == n) {
                sines[i] = sines[i - 1] * cosines[1] + cosines[i - 1] * sines[1];
                cosines[i] = cosines[i - 1] * cosines[1] - sines[i - 1] * sines[1];
            }
            const double h = scale * coefficients[next++];
            const double along = g * cosines[i] + h * sines[i];
            const double across = g * sines[i] - h * cosines[i];
            field.north += along * q;
            field.down -= along * p;
            field.east += station.cosLatitude > 0.0 ? across * m * p / ((n + 1.0) * station.cosLatitude)
                                                    : across * q * station.sinLatitude;
        }
    }
    const double north = field.north;
    field.north = north * station.cosTilt + field.down * station.sinTilt;
    field.down = field.down * station.cosTilt - north * station.sinTilt;
    (target == targetNow ? componentsNow_ : componentsNextYear_) = field;
    return field;
}

void MagneticVariation::DIHF(int target) {
    constexpr double noField = 9.999999747378752e-05;  // nT
    constexpr double undefined = -1.0;
    const auto& [north, east, down] = target == targetNow ? componentsNow_ : componentsNextYear_;
    Elements& elements = target == targetNow ? now_ : nextYear_;
    const double horizontal2 = north * north + east * east;
    elements.horizontal = std::sqrt(horizontal2);
    elements.total = std::sqrt(horizontal2 + down * down);
    elements.inclination = std::atan2(down, elements.horizontal);
    elements.declination = elements.horizontal < noField ? undefined : std::atan2(east, north);
}

double MagneticVariation::getMagneticVariation(int day, int month, int year, double latitude, double longitude,
                                               double altitude) {
    constexpr int geodetic = 1, targetNextYear = 4;
    const double date = Julday(day, month, year);
    const double kilometres = altitude * 0.0010000000474974513;
    ExtraPSH(date, mainDegree, changeDegree, targetNow, modelEpoch);
    ExtraPSH(date + 1.0, mainDegree, changeDegree, targetNextYear, modelEpoch);
    for (const int target : {targetNow, targetNextYear}) {
        SHVAL3(geodetic, mainDegree, target, latitude, longitude, kilometres);
        DIHF(target);
    }
    const bool isDefined = now_.declination != -1.0;
    if (isDefined) now_.declination *= degreesPerRadian;
    now_.inclination *= degreesPerRadian;
    return now_.declination;
}

double MagneticVariation::getMagneticVariation2(int day, int month, int year, int latitudeDegrees, int latitudeMinutes,
                                                int latitudeSeconds, int longitudeDegrees, int longitudeMinutes,
                                                int longitudeSeconds, double altitude) {
    return getMagneticVariation(day, month, year, DegreesToDecimal(latitudeDegrees, latitudeMinutes, latitudeSeconds),
                                DegreesToDecimal(longitudeDegrees, longitudeMinutes, longitudeSeconds), altitude);
}

}  // namespace quode
