// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "astro/FastAstro.h"
#include "astro/MagneticVariation.h"
#include "support/tolerances.h"
#include "support/vectors.h"

namespace quode {
namespace {

using test::relative;
using test::Vector;
using test::vectorsOf;
using test::whole;

TEST(Qibla, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("qibla", "KibleAcisi")) {
        const KiblePair kible = FastAstro::KibleAcisi(v.in[0], v.in[1]);
        EXPECT_NEAR(v.out[0], kible.i, 1e-9) << v.describe();
        EXPECT_NEAR(v.out[1], kible.K, 1e-7) << v.describe();
    }
}

TEST(Qibla, CountsCounterClockwiseFromNorth) {
    EXPECT_NEAR(208.33, FastAstro::KibleAcisi(41.0, 29.0).K, 0.005);
    EXPECT_NEAR(-266.63, FastAstro::KibleAcisi(28.6, 77.2).K, 0.005);
    EXPECT_NEAR(-58.49, FastAstro::KibleAcisi(40.7, -74.0).K, 0.005);
}

TEST(Qibla, OnTheMeridianOfTheKaabaIsZeroOnBothSides) {
    EXPECT_EQ(0.0, FastAstro::KibleAcisi(41.0, 39.81999969482422).K);
    EXPECT_EQ(0.0, FastAstro::KibleAcisi(-10.0, 39.81999969482422).K);
    EXPECT_TRUE(std::isfinite(FastAstro::KibleAcisi(21.43, 39.81999969482422).i));
}

TEST(DecimalYear, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("qibla", "Julday")) {
        EXPECT_NEAR(v.out[0], MagneticVariation::Julday(whole(v.in[0]), whole(v.in[1]), whole(v.in[2])), 1e-9)
            << v.describe();
    }
}

TEST(DegreesMinutesSeconds, AgreeWithTheReference) {
    for (const Vector& v : vectorsOf("qibla", "DegreesToDecimal")) {
        EXPECT_NEAR(v.out[0], MagneticVariation::DegreesToDecimal(whole(v.in[0]), whole(v.in[1]), whole(v.in[2])),
                    relative(v.out[0]))
            << v.describe();
    }
    EXPECT_EQ(-0.5, MagneticVariation::DegreesToDecimal(0, -30, 0));
}

TEST(FieldCoefficients, AgreeWithTheReference) {
    for (const Vector& v : vectorsOf("qibla", "ExtraPSH")) {
        MagneticVariation model;
        const int target = whole(v.in[3]);
        model.ExtraPSH(v.in[0], whole(v.in[1]), whole(v.in[2]), target, v.in[4]);
        const auto& actual = target == 3 ? model.gha() : model.ghb();
        ASSERT_EQ(v.out.size(), actual.size());
        for (std::size_t i = 0; i < actual.size(); ++i) EXPECT_NEAR(v.out[i], actual[i], relative(v.out[i])) << i;
    }
}

TEST(FieldCoefficients, AtTheEpochAreThePublishedOnes) {
    MagneticVariation model;
    model.ExtraPSH(2010.0, 13, 8, 3, 2010.0);
    EXPECT_EQ(-29496.5, model.gha()[0]);
    EXPECT_EQ(-1585.9000244140625, model.gha()[1]);
    EXPECT_EQ(4945.10009765625, model.gha()[2]);
    model.ExtraPSH(2005.0, 13, 8, 4, 2005.0);
    EXPECT_EQ(-29556.80078125, model.ghb()[0]);
}

TEST(MagneticDeclination, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("qibla", "getMagneticVariation")) {
        MagneticVariation model;
        EXPECT_NEAR(
            v.out[0],
            model.getMagneticVariation(whole(v.in[0]), whole(v.in[1]), whole(v.in[2]), v.in[3], v.in[4], v.in[5]),
            relative(v.out[0]))
            << v.describe();
    }
    for (const Vector& v : vectorsOf("qibla", "getMagneticVariation2")) {
        MagneticVariation model;
        const auto n = [&](std::size_t i) { return whole(v.in[i]); };
        EXPECT_NEAR(v.out[0],
                    model.getMagneticVariation2(n(0), n(1), n(2), n(3), n(4), n(5), n(6), n(7), n(8), v.in[9]),
                    relative(v.out[0]))
            << v.describe();
    }
}

TEST(MagneticElements, AgreeWithTheReference) {
    for (const Vector& v : vectorsOf("qibla", "MagneticVariation.fields")) {
        MagneticVariation model;
        model.getMagneticVariation(whole(v.in[0]), whole(v.in[1]), whole(v.in[2]), v.in[3], v.in[4], v.in[5]);
        const std::vector<double> actual = {model.iDeclination(),
                                            model.iInclination(),
                                            model.iHorizontalIntensity(),
                                            model.iTotalIntensity(),
                                            model.iDeclinationTemp(),
                                            model.iInclinationTemp(),
                                            model.iHorizontalIntensityTemp(),
                                            model.iTotalIntensityTemp()};
        for (std::size_t i = 0; i < actual.size(); ++i) {
            EXPECT_NEAR(v.out[i], actual[i], relative(v.out[i])) << v.describe() << " value " << i;
        }
    }
}

TEST(MagneticDeclination, IsExtrapolatedLinearlyBeyondItsModel) {
    MagneticVariation model;
    const double near = model.getMagneticVariation(1, 1, 2016, 41.0, 29.0, 500.0);
    const double far = model.getMagneticVariation(1, 1, 2036, 41.0, 29.0, 500.0);
    EXPECT_TRUE(std::isfinite(far));
    EXPECT_GT(far, near);  // it moves eastward there
}

TEST(MagneticDeclination, IsARealNumberEverywhereOnEarth) {
    MagneticVariation model;
    for (double latitude = -90.0; latitude <= 90.0; latitude += 5.0) {
        for (double longitude = -180.0; longitude <= 180.0; longitude += 20.0) {
            for (const int year : {1, 2026, 9999}) {
                ASSERT_TRUE(std::isfinite(model.getMagneticVariation(29, 2, year, latitude, longitude, 500.0)))
                    << latitude << " " << longitude << " " << year;
            }
        }
    }
}

}  // namespace
}  // namespace quode
