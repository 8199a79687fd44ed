// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/EarthCompute.h"

#include <array>
#include <cmath>
#include <initializer_list>
#include <span>

#include "astro/SeriesTables.h"
#include "astro/float_cosine.h"

namespace quode {
namespace {

double sum(std::span<const tables::EarthTerm> terms, double t) {
    double total = 0.0;
    for (const auto& [A, B, C] : terms) total += A * std::cos(static_cast<float>(B + C * t));
    return total;
}

/// The terms of all series in sequence, as columns, padded with zeros to whole vectors.
constexpr std::size_t termCount = std::size(tables::L0) + std::size(tables::L1) + std::size(tables::L2) +
                                  std::size(tables::L3) + std::size(tables::L4) + std::size(tables::L5) +
                                  std::size(tables::B0) + std::size(tables::B1) + std::size(tables::R0) +
                                  std::size(tables::R1) + std::size(tables::R2) + std::size(tables::R3) +
                                  std::size(tables::R4);
constexpr std::size_t paddedCount = (termCount + 7) / 8 * 8;

struct AllTerms {
    std::array<double, paddedCount> A{}, B{}, C{};
};

AllTerms allTerms() {
    AllTerms all;
    std::size_t next = 0;
    const auto append = [&](std::span<const tables::EarthTerm> terms) {
        for (const auto& [A, B, C] : terms) {
            all.A[next] = A;
            all.B[next] = B;
            all.C[next++] = C;
        }
    };
    for (const std::span<const tables::EarthTerm> terms : std::initializer_list<std::span<const tables::EarthTerm>>{
             tables::L0, tables::L1, tables::L2, tables::L3, tables::L4, tables::L5, tables::B0, tables::B1, tables::R0,
             tables::R1, tables::R2, tables::R3, tables::R4}) {
        append(terms);
    }
    return all;
}

double millenniaFromJ2000(double julianDay) {
    return (julianDay - 2451545.0) / 365250.0;
}

}  // namespace

double EarthCompute::L0(double t) {
    return sum(tables::L0, t);
}
double EarthCompute::L1(double t) {
    return sum(tables::L1, t);
}
double EarthCompute::L2(double t) {
    return sum(tables::L2, t);
}
double EarthCompute::L3(double t) {
    return sum(tables::L3, t);
}
double EarthCompute::L4(double t) {
    return sum(tables::L4, t);
}
double EarthCompute::L5(double t) {
    return sum(tables::L5, t);
}
double EarthCompute::B0(double t) {
    return sum(tables::B0, t);
}
double EarthCompute::B1(double t) {
    return sum(tables::B1, t);
}
double EarthCompute::R0(double t) {
    return sum(tables::R0, t);
}
double EarthCompute::R1(double t) {
    return sum(tables::R1, t);
}
double EarthCompute::R2(double t) {
    return sum(tables::R2, t);
}
double EarthCompute::R3(double t) {
    return sum(tables::R3, t);
}
double EarthCompute::R4(double t) {
    return sum(tables::R4, t);
}

double EarthCompute::EarthL(double julianDay) {
    const double t = millenniaFromJ2000(julianDay);
    const double t2 = t * t, t3 = t2 * t, t4 = t3 * t, t5 = t4 * t;
    return (L0(t) + L1(t) * t + L2(t) * t2 + L3(t) * t3 + L4(t) * t4 + L5(t) * t5) / 1e8;
}

double EarthCompute::EarthB(double julianDay) {
    const double t = millenniaFromJ2000(julianDay);
    return (B0(t) + B1(t) * t) / 1e8;
}

double EarthCompute::EarthR(double julianDay) {
    const double t = millenniaFromJ2000(julianDay);
    const double t2 = t * t, t3 = t2 * t, t4 = t3 * t;
    return (R0(t) + R1(t) * t + R2(t) * t2 + R3(t) * t3 + R4(t) * t4) / 1e8;
}

EarthCompute::Place EarthCompute::place(double julianDay) {
    // Up to twelve millennia away no argument exceeds FloatCosine::largestArgument: the fastest term has 161,000
    // radians in a millennium.
    constexpr double longestTime = 12.0;
    const double t = millenniaFromJ2000(julianDay);
    if (!FloatCosine::isVectorised() || !(std::abs(t) <= longestTime)) {
        return {EarthL(julianDay), EarthB(julianDay), EarthR(julianDay)};
    }
    const double t2 = t * t, t3 = t2 * t, t4 = t3 * t, t5 = t4 * t;
    static const AllTerms terms = allTerms();
    std::array<double, paddedCount> products;
    FloatCosine::products(terms.A.data(), terms.B.data(), terms.C.data(), t, products.data(), paddedCount);
    const double* next = products.data();
    const auto sumOf = [&next](std::size_t count) {
        double total = 0.0;
        for (std::size_t i = 0; i < count; ++i) total += next[i];
        next += count;
        return total;
    };
    const double l0 = sumOf(std::size(tables::L0)), l1 = sumOf(std::size(tables::L1)),
                 l2 = sumOf(std::size(tables::L2)), l3 = sumOf(std::size(tables::L3)),
                 l4 = sumOf(std::size(tables::L4)), l5 = sumOf(std::size(tables::L5));
    const double b0 = sumOf(std::size(tables::B0)), b1 = sumOf(std::size(tables::B1));
    const double r0 = sumOf(std::size(tables::R0)), r1 = sumOf(std::size(tables::R1)),
                 r2 = sumOf(std::size(tables::R2)), r3 = sumOf(std::size(tables::R3)),
                 r4 = sumOf(std::size(tables::R4));
    return {(l0 + l1 * t + l2 * t2 + l3 * t3 + l4 * t4 + l5 * t5) / 1e8, (b0 + b1 * t) / 1e8,
            (r0 + r1 * t + r2 * t2 + r3 * t3 + r4 * t4) / 1e8};
}

}  // namespace quode
