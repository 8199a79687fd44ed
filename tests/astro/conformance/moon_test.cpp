// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/MoonCompute.h"
#include "support/tolerances.h"
#include "support/vectors.h"

namespace quode {
namespace {

using test::Vector;
using test::vectorsOf;
using test::whole;
using Numbers = std::vector<double>;

/// Runs an operation on the arguments of every vector; each result must be within its tolerance. The last tolerance
/// applies to all further results.
void expectVectors(std::string_view op, const Numbers& tolerances, const std::function<Numbers(const Numbers&)>& run) {
    for (const Vector& v : vectorsOf("moon", op)) {
        const Numbers actual = run(v.in);
        ASSERT_EQ(v.out.size(), actual.size()) << v.describe();
        for (std::size_t i = 0; i < actual.size(); ++i) {
            EXPECT_NEAR(v.out[i], actual[i], tolerances[std::min(i, tolerances.size() - 1)])
                << v.describe() << " result " << i;
        }
    }
}

void expectFunction(std::string_view op, double tolerance, double (*function)(double)) {
    expectVectors(op, {tolerance}, [&](const Numbers& in) { return Numbers{function(in[0])}; });
}

FastAstro engineAt(double latitude, double longitude = 0.0) {
    FastAstro engine;
    engine.SetLatLon(latitude, longitude);
    engine.CalculateTLong();
    return engine;
}

constexpr double coordinate = 1e-9;  // double precision throughout

TEST(DegreeFunctions, AgreeWithTheReference) {
    expectFunction("PutIn360", coordinate, MoonCompute::PutIn360);
    expectFunction("ToDeg", coordinate, FastAstro::ToDeg);
    expectFunction("MoonLambda", coordinate, FastAstro::MoonLambda);
    expectFunction("Cos_Deg", coordinate, MoonCompute::Cos_Deg);
    expectFunction("Sin_Deg", coordinate, MoonCompute::Sin_Deg);
    expectFunction("Tan_Deg", 1e-6, MoonCompute::Tan_Deg);
    expectFunction("ArcSin_Deg", test::preciseMoonDegrees, MoonCompute::ArcSin_Deg);
    expectVectors("ArcTan2_Deg", {1.6e-5},
                  [](const Numbers& in) { return Numbers{MoonCompute::ArcTan2_Deg(in[0], in[1])}; });
    expectVectors("ZArcTan2", {coordinate},
                  [](const Numbers& in) { return Numbers{AstroGlobalFuncs::ZArcTan2(in[0], in[1])}; });
}

TEST(DegreeFunctions, ReduceIntoOneCircle) {
    EXPECT_EQ(359.5, MoonCompute::PutIn360(-0.5));
    EXPECT_EQ(0.0, MoonCompute::PutIn360(720.0));
}

TEST(FastMoon, AgreesWithTheReference) {
    expectVectors("MoonDecRA", {coordinate}, [](const Numbers& in) {
        FastAstro engine;
        engine.MoonDecRA(in[0]);
        return Numbers{engine.L_Moon(), engine.B_Moon(), engine.MoonDec(), engine.MoonRA(), engine.MoonGHA()};
    });
}

TEST(FastMoon, KeepsItsCoordinatesInRange) {
    for (double julianDay = 1721425.5; julianDay < 5373485.0; julianDay += 97.13) {
        FastAstro engine;
        engine.MoonDecRA(julianDay);
        ASSERT_TRUE(engine.MoonRA() >= 0.0 && engine.MoonRA() < 24.0) << julianDay;
        ASSERT_TRUE(engine.MoonGHA() >= 0.0 && engine.MoonGHA() <= 360.0) << julianDay;
    }
}

TEST(PreciseMoon, AgreesWithTheReference) {
    const Numbers tolerances = {test::preciseMoonDegrees, test::preciseMoonHours, 1e-3};
    expectVectors("Moon_Coordinate", tolerances, [](const Numbers& in) {
        double declination = 0.0, rightAscension = 0.0, distance = 0.0;
        MoonCompute::Moon_Coordinate(in[0], declination, rightAscension, distance);
        return Numbers{declination, rightAscension, distance};
    });
    expectVectors("MoonDecRAAccurate",
                  {test::preciseMoonDegrees, test::preciseMoonHours, 1e-3, test::preciseMoonDegrees},
                  [](const Numbers& in) {
                      FastAstro engine;
                      engine.MoonDecRAAccurate(in[0]);
                      return Numbers{engine.MoonDec(), engine.MoonRA(), engine.MoonDist(), engine.MoonGHA()};
                  });
}

TEST(PreciseMoon, HasItsRightAscensionBetween0And24Hours) {
    int fromNegativeAngles = 0;
    for (double julianDay = 2451545.0; julianDay < 2451575.0; julianDay += 0.25) {
        double declination = 0.0, rightAscension = 0.0, distance = 0.0;
        MoonCompute::Moon_Coordinate(julianDay, declination, rightAscension, distance);
        ASSERT_TRUE(rightAscension >= 0.0 && rightAscension < 24.0) << julianDay;
        if (rightAscension > 12.0) ++fromNegativeAngles;
    }
    EXPECT_GT(fromNegativeAngles, 40);
}

TEST(Nutation, AgreesWithTheReference) {
    expectVectors("Calc_Epsilon_Phi", {1e-8}, [](const Numbers& in) {
        double deltaPsi = 0.0, epsilon = 0.0;
        MoonCompute::Calc_Epsilon_Phi(in[0], deltaPsi, epsilon);
        return Numbers{deltaPsi, epsilon};
    });
    expectVectors("Calc_Geocentric", {test::preciseMoonDegrees, 1.6e-5, test::preciseMoonDegrees},
                  [](const Numbers& in) {
                      double lambda = in[1], alpha = 0.0, delta = 0.0;
                      MoonCompute::Calc_Geocentric(in[0], lambda, in[2], alpha, delta);
                      return Numbers{lambda, alpha, delta};
                  });
}

TEST(SiderealTimeForTheMoon, AgreesWithTheReference) {
    expectVectors("LMST", {coordinate}, [](const Numbers& in) { return Numbers{FastAstro::LMST(in[0], in[1])}; });
    expectVectors("MoonSideRealTime", {1e-4},
                  [](const Numbers& in) { return Numbers{engineAt(0.0, in[0]).MoonSideRealTime(in[1])}; });
}

TEST(MoonDistance, AgreesWithTheReference) {
    expectFunction("MoonDistance", 1e-6, FastAstro::MoonDistance);
    expectVectors("MoonParallax", {coordinate},
                  [](const Numbers& in) { return Numbers{FastAstro::MoonParallax(in[0], in[1])}; });
}

TEST(MoonAltitude, AgreesWithTheReference) {
    expectVectors("MoonTrueAltitude", {1e-8}, [](const Numbers& in) {
        FastAstro engine = engineAt(in[0], in[1]);
        const double altitude = engine.MoonTrueAltitude(in[2]);
        EXPECT_EQ(altitude, engine.MoonAlt());
        return Numbers{altitude};
    });
    expectVectors("MoonAppAltitude", {1e-8}, [](const Numbers& in) {
        const VAKDate date =
            VAKDateMake(whole(in[4]), whole(in[3]), whole(in[2]), whole(in[5]), whole(in[6]), whole(in[7]));
        return Numbers{engineAt(in[0], in[1]).MoonAppAltitude(date)};
    });
}

TEST(ObserverOnTheEllipsoid, AgreesWithTheReference) {
    expectVectors("CalculateTLong", {coordinate}, [](const Numbers& in) {
        const FastAstro engine = engineAt(in[0]);
        return Numbers{engine.tLat(), engine.trho()};
    });
    expectVectors("DiurnalAberration", {1e-12}, [](const Numbers& in) {
        double alpha = in[1], delta = in[2];
        engineAt(in[0]).DiurnalAberration(alpha, delta, in[3]);
        return Numbers{alpha, delta};
    });
    expectVectors("DiurnalParallax", {2e-7, coordinate}, [](const Numbers& in) {
        double alpha = in[1], delta = in[2];
        engineAt(in[0]).DiurnalParallax(alpha, delta, in[3], in[4]);
        return Numbers{alpha, delta};
    });
    expectVectors("MoonAltitudeAzimuth", {1e-5, 1.6e-5}, [](const Numbers& in) {
        FastAstro engine = engineAt(in[0]);
        MoonInfo moon;
        moon.Dec = in[1];
        moon.RA = in[2];
        moon.SideRealTime = in[3];
        moon.Distance = in[4];
        engine.setMoon(moon);
        double altitude = 0.0, azimuth = 0.0;
        engine.MoonAltitudeAzimuth(altitude, azimuth);
        return Numbers{altitude, azimuth};
    });
}

TEST(ObserverOnTheEllipsoid, SeesNoParallaxBeyondItsLimit) {
    const FastAstro engine = engineAt(40.0);
    double alpha = 1.3, delta = -0.5;
    engine.DiurnalParallax(alpha, delta, 2.0, std::nextafter(1758.800048828125, 1e9));
    EXPECT_EQ(1.3, alpha);
    EXPECT_EQ(-0.5, delta);
    engine.DiurnalParallax(alpha, delta, 2.0, 1758.800048828125);
    EXPECT_NE(1.3, alpha);
    EXPECT_NE(-0.5, delta);
}

TEST(ObserverOnTheEllipsoid, StaysRealAtThePoleOfTheSky) {
    double alpha = 1.25, delta = 1.5707963267948966;
    engineAt(0.0).DiurnalAberration(alpha, delta, 2.0);
    EXPECT_TRUE(std::isfinite(alpha));
    EXPECT_TRUE(std::isfinite(delta));
}

TEST(MoonAzimuth, AgreesWithTheReference) {
    expectVectors("MoonAzimuth", {test::steepAzimuthDegrees},
                  [](const Numbers& in) { return Numbers{engineAt(in[0], in[1]).MoonAzimuth(in[2], in[3], in[4])}; });
}

TEST(MoonAzimuth, IsSouthOrNorthOnTheMeridianAndMarkedWhereThereIsNone) {
    EXPECT_NEAR(180.0, engineAt(50.0, 10.0).MoonAzimuth(20.0, -10.0, 60.0), 0.05);
    EXPECT_NEAR(0.0, engineAt(-20.0, 10.0).MoonAzimuth(20.0, -10.0, 50.0), 0.05);
    EXPECT_EQ(noDirection, engineAt(90.0, 10.0).MoonAzimuth(20.0, 0.0, 20.0));
    EXPECT_EQ(noDirection, engineAt(20.0, 10.0).MoonAzimuth(20.0, -10.0, 90.0));
}

TEST(MoonElongation, AgreesWithTheReference) {
    expectVectors("MoonElongation", {test::accurateSunDegrees},
                  [](const Numbers& in) { return Numbers{FastAstro().MoonElongation(in[0])}; });
}

TEST(MoonPhaseFraction, AgreesWithTheReference) {
    expectFunction("Phase", coordinate, FastAstro::Phase);
}

TEST(SunHourAngle, AgreesWithTheReference) {
    expectVectors("ComputeGHA", {1e-8}, [](const Numbers& in) {
        return Numbers{FastAstro::ComputeGHA(whole(in[0]), whole(in[1]), whole(in[2]), in[3])};
    });
}

TEST(SunHourAngle, NeverExceedsTheCircle) {
    for (int year = 1; year <= 9999; year += 101) {
        for (int month = 1; month <= 12; ++month) {
            for (int minute = 0; minute < 24 * 60; minute += 7) {
                ASSERT_LE(FastAstro::ComputeGHA(28, month, year, minute / 60.0), 360.0);
            }
        }
    }
}

}  // namespace
}  // namespace quode
