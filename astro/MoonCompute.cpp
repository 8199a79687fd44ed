// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/MoonCompute.h"

#include <cmath>

#include "astro/SeriesTables.h"
#include "astro/angles.h"

namespace quode {
namespace {

/// The mean arguments of the tables of the Moon, degrees; E is the factor of terms with the Sun's mean anomaly.
struct MeanArguments {
    double Lp, D, M, Mp, F, E;
};

MeanArguments meanArguments(double T) {
    const double T2 = T * T, T3 = T2 * T, T4 = T3 * T;
    MeanArguments mean{};
    mean.Lp = 218.3164520263672 + 481267.875 * T - 0.0013267999747768044 * T2 + 1.8558350802777568e-6 * T3 -
              1.5338834202793805e-8 * T4;
    mean.D = 297.8501892089844 + 445267.125 * T - 0.0016299999551847577 * T2 + 1.831944700825261e-6 * T3 -
             8.84447004523281e-9 * T4;
    mean.M = 357.52911376953125 + 35999.05078125 * T - 0.00015360000543296337 * T2 + 4.083299387502848e-8 * T3;
    // The last coefficient is ten times the published one.
    mean.Mp = 134.96340942382812 + 477198.875 * T + 0.008996999822556973 * T2 + 1.4347408068715595e-5 * T3 -
              6.797172318329103e-7 * T4;
    mean.F = 93.27210235595703 + 483202.03125 * T - 0.0034028999507427216 * T2 - 2.8360747705846734e-7 * T3 +
             1.158332429973541e-9 * T4;
    mean.E = 1.0 - 0.0025160000659525394 * T - 7.3999999585794285e-6 * T2;
    return mean;
}

/// A term with the Sun's anomaly shrinks with the eccentricity of the Earth's orbit.
double eccentricityFactor(int multipleOfM, double E) {
    switch (multipleOfM) {
        case 1:
        case -1:
            return E;
        case 2:
        case -2:
            return E * E;
        default:
            return 1.0;
    }
}

template <typename Term>
double argumentOf(const Term& term, const MeanArguments& mean) {
    return mean.D * term.D + mean.M * term.M + mean.Mp * term.Mp + mean.F * term.F;
}

}  // namespace

double MoonCompute::PutIn360(double angle) {
    const double reduced = angle - 360.0 * std::trunc(angle / 360.0);
    return reduced < 0.0 ? reduced + 360.0 : reduced;
}

double MoonCompute::Cos_Deg(double angle) {
    return std::cos(static_cast<float>(PutIn360(angle) * degree));
}

double MoonCompute::Sin_Deg(double angle) {
    return std::sin(static_cast<float>(PutIn360(angle) * degree));
}

double MoonCompute::Tan_Deg(double angle) {
    return std::tan(static_cast<float>(PutIn360(angle) * degree));
}

double MoonCompute::ArcTan2_Deg(double y, double x) {
    return std::atan2(static_cast<float>(y), static_cast<float>(x)) * static_cast<float>(degreesPerRadian);
}

double MoonCompute::ArcSin_Deg(double x) {
    return std::asin(static_cast<float>(x)) * static_cast<float>(degreesPerRadian);
}

void MoonCompute::Calc_Epsilon_Phi(double julianDay, double& deltaPsi, double& epsilon) {
    const double T = centuriesFromJ2000(julianDay);
    const double T2 = T * T, T3 = T2 * T;
    const double omega =
        PutIn360(125.04451751708984 - 1934.13623046875 * T + 0.0020707999356091022 * T2 + 2.2222222924028756e-6 * T3);
    const double D = PutIn360(297.8503723144531 + 445267.125 * T - 0.0019142000237479806 * T2 + T3 / 189474.0);
    const double M = PutIn360(357.5277099609375 + 35999.05078125 * T - 0.00016029999824240804 * T2 - T3 / 300000.0);
    const double Mp = PutIn360(134.96298217773438 + 477198.875 * T + 0.008697199635207653 * T2 + T3 / 56250.0);
    const double F = PutIn360(93.27191162109375 + 483202.03125 * T - 0.003682499984279275 * T2 + T3 / 327270.0);

    constexpr double tenth = 0.10000000149011612;
    double psiSum = 0.0, epsilonSum = 0.0;
    for (const tables::NutationTerm& term : tables::nutation_iau1980_first31) {
        const double argument = D * term.D + M * term.M + Mp * term.Mp + F * term.F + omega * term.Omega;
        psiSum += Sin_Deg(argument) * (term.psi + term.psiT * T * tenth);
        epsilonSum += Cos_Deg(argument) * (term.eps + term.epsT * T * tenth);
    }
    constexpr double arcSeconds = 9.999999747378752e-5;
    deltaPsi = psiSum * arcSeconds / 3600.0;
    epsilon = (84381.4453125 - 46.814998626708984 * T - 0.000590000010561198 * T2 + 0.0018129999516531825 * T3 +
               epsilonSum * arcSeconds) /
              3600.0;
}

void MoonCompute::Calc_Geocentric(double julianDay, double& lambda, double beta, double& alpha, double& delta) {
    double deltaPsi = 0.0, epsilon = 0.0;
    Calc_Epsilon_Phi(julianDay, deltaPsi, epsilon);
    lambda = PutIn360(lambda + deltaPsi);
    alpha = ArcTan2_Deg(Sin_Deg(lambda) * Cos_Deg(epsilon) - Tan_Deg(beta) * Sin_Deg(epsilon), Cos_Deg(lambda));
    delta = ArcSin_Deg(Sin_Deg(beta) * Cos_Deg(epsilon) + Cos_Deg(beta) * Sin_Deg(epsilon) * Sin_Deg(lambda));
}

void MoonCompute::Moon_Coordinate(double julianDay, double& declination, double& rightAscension, double& distance) {
    const double T = centuriesFromJ2000(julianDay);
    const MeanArguments mean = meanArguments(T);

    double longitudeSum = 0.0, distanceSum = 0.0, latitudeSum = 0.0;
    for (const tables::LongitudeDistanceTerm& term : tables::moon_longitude_distance) {
        const double argument = argumentOf(term, mean);
        const double factor = eccentricityFactor(term.M, mean.E);
        distanceSum += term.sigmaR * Cos_Deg(argument) * factor;
        longitudeSum += term.sigmaL * Sin_Deg(argument) * factor;
    }
    for (const tables::LatitudeTerm& term : tables::moon_latitude) {
        latitudeSum += term.sigmaB * Sin_Deg(argumentOf(term, mean)) * eccentricityFactor(term.M, mean.E);
    }

    // Venus, Jupiter and the flattening of the Earth. In the source, the terms 318 and 382 have A2 and A3 exchanged.
    const double A1 = 119.75 + 131.8489990234375 * T;
    const double A2 = 313.45001220703125 + 481266.46875 * T;
    const double A3 = 53.09000015258789 + 479264.28125 * T;
    longitudeSum += 3958.0 * Sin_Deg(A1) + 1962.0 * Sin_Deg(mean.Lp - mean.F) + 318.0 * Sin_Deg(A3);
    latitudeSum += -2235.0 * Sin_Deg(mean.Lp) + 382.0 * Sin_Deg(A2) + 175.0 * Sin_Deg(A1 - mean.F) +
                   175.0 * Sin_Deg(A1 + mean.F) + 127.0 * Sin_Deg(mean.Lp - mean.Mp) -
                   115.0 * Sin_Deg(mean.Lp + mean.Mp);

    distance = 385000.5625 + distanceSum / 1000.0;
    double lambda = mean.Lp + longitudeSum / 1000000.0;
    double alpha = 0.0;
    Calc_Geocentric(julianDay, lambda, latitudeSum / 1000000.0, alpha, declination);
    rightAscension = alpha / 15.0;
    if (rightAscension < 0.0) rightAscension += 24.0;
}

}  // namespace quode
