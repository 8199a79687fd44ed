// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/SunMoments.h"

#include <cmath>

#include "astro/FastAstro.h"
#include "astro/SunSeries.h"
#include "astro/angles.h"

namespace quode {
namespace {

constexpr double twoDegrees = 0.03490658476948738;
constexpr double threeDegrees = 0.05235987901687622;

/// The places of the Sun at several moments, each step for all moments together: the steps of one moment depend on each
/// other, those of different moments do not, so the processor overlaps them.
template <std::size_t count>
void computeSunMoments(const std::array<SunMoment*, count>& moments) {
    std::array<double, count> T, M, sinM, sin2M, sin3M, node, sinNode, cosNode, longitude, epsilon, sinLongitude,
        cosLongitude, sinEpsilon, cosEpsilon;
    const auto forAll = [](auto&& step) {
        for (std::size_t i = 0; i < count; ++i) step(i);
    };
    forAll([&](std::size_t i) {
        T[i] = centuriesFromJ2000(moments[i]->julianDay);
        const double T2 = T[i] * T[i];
        M[i] = 357.52911376953125 + 35999.05078125 * T[i] - 0.00015589999384246767 * T2 -
               4.799999828719592e-07 * T2 * T[i];
        node[i] = lunarNode(T[i]);
    });
    forAll([&](std::size_t i) { sinM[i] = sinDeg(M[i]); });
    forAll([&](std::size_t i) { sin2M[i] = std::sin(M[i] * twoDegrees); });
    forAll([&](std::size_t i) { sin3M[i] = std::sin(M[i] * threeDegrees); });
    forAll([&](std::size_t i) {
        sinNode[i] = sinDeg(node[i]);
        cosNode[i] = cosDeg(node[i]);
    });
    forAll([&](std::size_t i) {
        const double T2 = T[i] * T[i];
        const double centre =
            (1.9146000146865845 - 0.00481700012460351 * T[i] - 1.4000000192027073e-05 * T2) * sinM[i] +
            (0.019992999732494354 - 0.00010099999781232327 * T[i]) * sin2M[i] + 0.0002899999963119626 * sin3M[i];
        longitude[i] = fullCircle(280.4664611816406 + 36000.76953125 * T[i] + 0.0003032000095117837 * T2 + centre +
                                  (-0.005690000019967556 - 0.004780000075697899 * sinNode[i]));
        epsilon[i] = 23.433332443237305 +
                     (21.447999954223633 - 46.814998626708984 * T[i] - 0.000590000010561198 * T[i] * T[i] +
                      0.0018129999516531825 * T[i] * T[i] * T[i]) /
                         3600.0 +
                     0.0025599999353289604 * cosNode[i];
    });
    forAll([&](std::size_t i) {
        sinLongitude[i] = sinDeg(longitude[i]);
        cosLongitude[i] = cosDeg(longitude[i]);
    });
    forAll([&](std::size_t i) {
        sinEpsilon[i] = sinDeg(epsilon[i]);
        cosEpsilon[i] = cosDeg(epsilon[i]);
    });
    forAll([&](std::size_t i) {
        moments[i]->declination = std::asin(sinEpsilon[i] * sinLongitude[i]) * degreesPerRadian;
    });
    forAll([&](std::size_t i) {
        double angle = std::atan2(cosEpsilon[i] * sinLongitude[i], cosLongitude[i]) * degreesPerRadian;
        if (angle < 0.0) angle += 360.0;
        moments[i]->rightAscension = angle / 15.0;
        moments[i]->eclipticLongitude = longitude[i];
    });
    forAll([&](std::size_t i) {
        moments[i]->sinDeclination = sinDeg(moments[i]->declination);
        moments[i]->cosDeclination = cosDeg(moments[i]->declination);
    });
    forAll([&](std::size_t i) { moments[i]->siderealTime = FastAstro::GM_Sidereal_Time(moments[i]->julianDay); });
}

}  // namespace

SunMoment sunMomentAt(double julianDay) {
    SunMoment sun;
    sun.julianDay = julianDay;
    computeSunMoments<1>({&sun});
    return sun;
}

void computeMissing(const std::array<SunMoment*, 3>& moments, const std::array<double, 3>& julianDays) {
    std::array<SunMoment*, 3> missing{};
    std::size_t count = 0;
    for (std::size_t i = 0; i < moments.size(); ++i) {
        if (moments[i]->julianDay == julianDays[i]) continue;
        moments[i]->julianDay = julianDays[i];
        missing[count++] = moments[i];
    }
    if (count == 3) return computeSunMoments<3>(missing);
    if (count == 2) return computeSunMoments<2>({missing[0], missing[1]});
    if (count == 1) return computeSunMoments<1>({missing[0]});
}

}  // namespace quode
