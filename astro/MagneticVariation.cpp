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

/// The point of a synthesis: geocentric latitude and radius, and the angle between the two verticals.
struct Station {
    double sinLatitude, cosLatitude, radius;
    double cosTilt = 1.0, sinTilt = 0.0;
};

/// Two places side by side; each of them goes through the same steps as it would alone.
using Pair = double __attribute__((vector_size(16)));

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

/// The factors of the recurrences that do not depend on the place, by degree and order.
struct Recurrence {
    double a, b, c, bByDegree, diagonal;
};

constexpr int highestDegree = MagneticVariation::mainDegree;

using RecurrenceTable = std::array<Recurrence, 104>;

RecurrenceTable recurrenceTable() {
    RecurrenceTable table{};
    std::size_t k = 0;
    for (int n = 1; n <= highestDegree; ++n) {
        for (int m = 0; m <= n; ++m, ++k) {
            if (k < 4) continue;
            const double fn = n, fm = m;
            Recurrence& row = table[k];
            if (m == n) {
                row.a = std::sqrt(1.0 - 0.5 / fm);
                row.diagonal = (1.0 + 1.0 / fm) * row.a;
                continue;
            }
            row.a = std::sqrt(fn * fn - fm * fm);
            row.b = std::sqrt((fn - 1.0) * (fn - 1.0) - fm * fm) / row.a;
            row.c = (2.0 * fn - 1.0) / row.a;
            row.bByDegree = row.b / (fn - 1.0);
        }
    }
    return table;
}

/// Schmidt quasi-normalised functions P and their derivatives Q at a latitude, term by term in the order (1,0), (1,1),
/// (2,0), (2,1), (2,2), ... Each term builds on earlier ones.
template <typename Value>
void legendre(const Value& s, const Value& c, int degree, std::array<Value, 104>& P, std::array<Value, 104>& Q) {
    static const RecurrenceTable table = recurrenceTable();
    constexpr double root3 = 1.7320508075688772, root27 = 5.196152422706632;
    P[0] = 2.0 * s, P[1] = 2.0 * c, P[2] = 4.5 * s * s - 1.5, P[3] = root27 * c * s;
    Q[0] = -c, Q[1] = s, Q[2] = -3.0 * c * s, Q[3] = root3 * (s * s - c * c);
    std::size_t k = 2;
    for (int n = 2; n <= degree; ++n) {
        const double fn = n;
        const Value cByDegree = c / fn;
        const auto un = static_cast<std::size_t>(n);
        for (std::size_t m = 0; m < un; ++m) {
            const std::size_t i = k + m;
            if (i < 4) continue;
            const Recurrence& row = table[i];
            const std::size_t above = i - un, twoAbove = i - 2 * un + 1;
            P[i] = (fn + 1.0) * (row.c * s / fn * P[above] - row.bByDegree * P[twoAbove]);
            Q[i] = row.c * (s * Q[above] - cByDegree * P[above]) - row.b * Q[twoAbove];
        }
        k += un;
        const std::size_t diagonal = k - un - 1;
        const Recurrence& row = table[k];
        P[k] = row.diagonal * c * P[diagonal];
        Q[k] = row.a * (c * Q[diagonal] + s / fn * P[diagonal]);
        ++k;
    }
}

// Sets the one value of a double, or one of two.
void setLane(double& value, std::size_t, double number) {
    value = number;
}

void setLane(Pair& pair, std::size_t place, double number) {
    pair[place] = number;
}

template <typename Value>
void setPlace(MagneticVariation::TermsOf<Value>& terms, std::size_t i, const Station& station, double longitude,
              int degree) {
    setLane(terms.cosTilt, i, station.cosTilt);
    setLane(terms.sinTilt, i, station.sinTilt);
    setLane(terms.sinLatitude, i, station.sinLatitude);
    setLane(terms.cosLatitude, i, station.cosLatitude);
    setLane(terms.sines[1], i, sinDeg(longitude));
    setLane(terms.cosines[1], i, cosDeg(longitude));
    const double ratio = referenceRadius / station.radius;
    for (int n = 1; n <= degree; ++n) setLane(terms.scales[static_cast<std::size_t>(n)], i, std::pow(ratio, n + 2));
}

/// What follows from the place that was set.
template <typename Value>
void finishTerms(MagneticVariation::TermsOf<Value>& terms, int degree) {
    legendre(terms.sinLatitude, terms.cosLatitude, degree, terms.P, terms.Q);
    for (std::size_t i = 2; i <= static_cast<std::size_t>(degree); ++i) {
        terms.sines[i] = terms.sines[i - 1] * terms.cosines[1] + terms.cosines[i - 1] * terms.sines[1];
        terms.cosines[i] = terms.cosines[i - 1] * terms.cosines[1] - terms.sines[i - 1] * terms.sines[1];
    }
}

MagneticVariation::PlaceTerms placeTerms(const Station& station, double longitude, int degree) {
    MagneticVariation::PlaceTerms terms;
    setPlace(terms, 0, station, longitude, degree);
    finishTerms(terms, degree);
    return terms;
}

template <typename Value>
struct ComponentsOf {
    Value north, east, down;
};

template <typename Value>
ComponentsOf<Value> synthesis(const MagneticVariation::Coefficients& coefficients,
                              const MagneticVariation::TermsOf<Value>& place, int degree, bool isOffPole) {
    Value north{}, east{}, down{};
    std::size_t next = 0;  // coefficient
    std::size_t k = 0;     // term
    for (int n = 1; n <= degree; ++n) {
        const Value scale = place.scales[static_cast<std::size_t>(n)];
        const Value divisor = (n + 1.0) * place.cosLatitude;
        const Value zonal = scale * coefficients[next++];
        north += zonal * place.Q[k];
        down -= zonal * place.P[k];
        ++k;
        for (int m = 1; m <= n; ++m, ++k) {
            const Value p = place.P[k], q = place.Q[k];
            const auto i = static_cast<std::size_t>(m);
            const double order = m;
            const Value g = scale * coefficients[next++];
            const Value h = scale * coefficients[next++];
            const Value along = g * place.cosines[i] + h * place.sines[i];
            const Value across = g * place.sines[i] - h * place.cosines[i];
            north += along * q;
            down -= along * p;
            if (isOffPole) {
                east += across * order * p / divisor;
            } else {
                east += across * q * place.sinLatitude;
            }
        }
    }
    return {north * place.cosTilt + down * place.sinTilt, east, down * place.cosTilt - north * place.sinTilt};
}

FieldComponents synthesis(const MagneticVariation::Coefficients& coefficients,
                          const MagneticVariation::PlaceTerms& place, int degree) {
    const auto [north, east, down] = synthesis(coefficients, place, degree, place.cosLatitude > 0.0);
    return {north, east, down};
}

constexpr double noField = 9.999999747378752e-05;  // nT
constexpr double undefined = -1.0;

double declinationOf(double north, double east) {
    const double horizontal = std::sqrt(north * north + east * east);
    if (horizontal < noField) return undefined;
    const double declination = std::atan2(east, north);
    return declination != undefined ? declination * degreesPerRadian : undefined;
}

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
    const int highest = std::min(maximumDegree, mainDegree);
    const PlaceTerms place = placeTerms(stationAt(coordinateSystem == 1, latitude, altitude), longitude, highest);
    return keep(target, synthesis(target == targetNow ? gha_ : ghb_, place, highest));
}

const FieldComponents& MagneticVariation::keep(int target, const FieldComponents& field) {
    return (target == targetNow ? componentsNow_ : componentsNextYear_) = field;
}

MagneticVariation::Field MagneticVariation::fieldAt(int day, int month, int year) {
    constexpr std::size_t changeCount = changeDegree * (changeDegree + 2);
    const double years = Julday(day, month, year) - modelEpoch;
    Field field;
    for (std::size_t i = 0; i < field.coefficients.size(); ++i) {
        const tables::FieldCoefficient& row = tables::geomagnetic_field[i];
        field.coefficients[i] = i < changeCount ? row.main2010 + years * row.change2010 : row.main2010;
    }
    return field;
}

MagneticVariation::PlaceTerms MagneticVariation::termsAt(double latitude, double longitude, double altitude) {
    return placeTerms(stationAt(true, latitude, altitude * 0.0010000000474974513), longitude, mainDegree);
}

double MagneticVariation::declination(const Field& field, const PlaceTerms& place) {
    const FieldComponents components = synthesis(field.coefficients, place, mainDegree);
    return declinationOf(components.north, components.east);
}

void MagneticVariation::declinations(const Field& field, std::span<const Point> places, std::span<double> results) {
    constexpr std::size_t lanes = 2;
    const auto stationOf = [](const Point& place) {
        return stationAt(true, place.latitude, place.altitude * 0.0010000000474974513);
    };
    TermsOf<Pair> terms;
    std::size_t i = 0;
    for (; i + lanes <= places.size(); i += lanes) {
        const std::array<Station, lanes> stations = {stationOf(places[i]), stationOf(places[i + 1])};
        if (stations[0].cosLatitude > 0.0 && stations[1].cosLatitude > 0.0) {
            for (std::size_t k = 0; k < lanes; ++k)
                setPlace(terms, k, stations[k], places[i + k].longitude, mainDegree);
            finishTerms(terms, mainDegree);
            const auto components = synthesis(field.coefficients, terms, mainDegree, true);
            for (std::size_t k = 0; k < lanes; ++k) {
                results[i + k] = declinationOf(components.north[k], components.east[k]);
            }
            continue;
        }
        for (std::size_t k = 0; k < lanes; ++k) {
            results[i + k] = declination(field, placeTerms(stations[k], places[i + k].longitude, mainDegree));
        }
    }
    for (; i < places.size(); ++i) {
        results[i] = declination(field, termsAt(places[i].latitude, places[i].longitude, places[i].altitude));
    }
}

void MagneticVariation::DIHF(int target) {
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
    constexpr int targetNextYear = 4;
    const double date = Julday(day, month, year);
    const double kilometres = altitude * 0.0010000000474974513;
    ExtraPSH(date, mainDegree, changeDegree, targetNow, modelEpoch);
    ExtraPSH(date + 1.0, mainDegree, changeDegree, targetNextYear, modelEpoch);
    const PlaceTerms place = placeTerms(stationAt(true, latitude, kilometres), longitude, mainDegree);
    for (const int target : {targetNow, targetNextYear}) {
        keep(target, synthesis(target == targetNow ? gha_ : ghb_, place, mainDegree));
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
