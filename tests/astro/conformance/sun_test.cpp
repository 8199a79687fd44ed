// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "astro/EarthCompute.h"
#include "astro/FastAstro.h"
#include "support/tolerances.h"
#include "support/vectors.h"

namespace quode {
namespace {

using test::relative;
using test::Vector;
using test::vectorsOf;

TEST(EarthSeries, AgreeWithTheReference) {
    using Series = double (*)(double);
    const std::vector<std::pair<const char*, Series>> series = {
        {"_L0", EarthCompute::L0},       {"_L1", EarthCompute::L1},        {"_L2", EarthCompute::L2},
        {"_L3", EarthCompute::L3},       {"_L4", EarthCompute::L4},        {"_L5", EarthCompute::L5},
        {"_B0", EarthCompute::B0},       {"_B1", EarthCompute::B1},        {"_R0", EarthCompute::R0},
        {"_R1", EarthCompute::R1},       {"_R2", EarthCompute::R2},        {"_R3", EarthCompute::R3},
        {"_R4", EarthCompute::R4},       {"EarthL", EarthCompute::EarthL}, {"EarthB", EarthCompute::EarthB},
        {"EarthR", EarthCompute::EarthR}};
    for (const auto& [name, function] : series) {
        for (const Vector& v : vectorsOf("sun", name)) {
            EXPECT_NEAR(v.out[0], function(v.in[0]), relative(v.out[0], 1e-8)) << v.describe();
        }
    }
}

TEST(FastSun, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("sun", "SunDecRA")) {
        FastAstro engine;
        engine.SunDecRA(v.in[0]);
        EXPECT_NEAR(v.out[0], engine.SunDec(), test::fastSunDegrees) << v.describe();
        EXPECT_NEAR(v.out[1], engine.SunRA(), test::fastSunDegrees) << v.describe();
        EXPECT_NEAR(v.out[2], engine.EclipticLongitude(), test::fastSunDegrees) << v.describe();
    }
}

TEST(FastSun, StandsNearTheWinterSolsticeAtJ2000) {
    FastAstro engine;
    engine.SunDecRA(2451545.0);
    EXPECT_NEAR(-23.0, engine.SunDec(), 0.05);
    EXPECT_NEAR(18.75, engine.SunRA(), 0.01);
}

TEST(AccurateSun, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("sun", "SunDecRAAccurate")) {
        FastAstro engine;
        engine.SunDecRAAccurate(v.in[0]);
        EXPECT_NEAR(v.out[0], engine.SunDistance(), 1e-7) << v.describe();
        EXPECT_NEAR(v.out[1], engine.SunDec(), test::accurateSunDegrees) << v.describe();
        EXPECT_NEAR(v.out[2], engine.SunRA(), test::accurateSunDegrees / 15.0) << v.describe();
    }
}

TEST(SunElements, AgreeWithTheReference) {
    using Element = double (*)(double);
    const std::vector<std::pair<const char*, Element>> elements = {{"SunL", FastAstro::SunL},
                                                                   {"Epsilon", FastAstro::Epsilon},
                                                                   {"DeltaPSI", FastAstro::DeltaPSI},
                                                                   {"Refract", FastAstro::Refract}};
    for (const auto& [name, function] : elements) {
        for (const Vector& v : vectorsOf("sun", name)) {
            EXPECT_NEAR(v.out[0], function(v.in[0]), relative(v.out[0])) << v.describe();
        }
    }
}

TEST(MeanLongitude, StartsAtItsEpochValue) {
    EXPECT_EQ(280.4664611816406, FastAstro::SunL(0.0));
}

TEST(MeanLongitude, StaysWithinTheCircle) {
    for (double T = -20.0; T <= 80.0; T += 0.0137) {
        const double longitude = FastAstro::SunL(T);
        ASSERT_TRUE(longitude >= 0.0 && longitude < 360.0) << T;
    }
}

TEST(EquationOfTime, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("sun", "EquationOfTime")) {
        EXPECT_NEAR(v.out[0], FastAstro::EquationOfTime(v.in[0], v.in[1]), relative(v.out[0])) << v.describe();
    }
}

TEST(EquationOfTime, StaysWithinSeventeenMinutesOverAYear) {
    FastAstro engine;
    double lowest = 0.0, highest = 0.0;
    for (int day = 0; day < 366; ++day) {
        engine.SunDecRAAccurate(2461041.5 + day);
        const double minutes = FastAstro::EquationOfTime(2461041.5 + day, engine.SunRA());
        lowest = std::min(lowest, minutes);
        highest = std::max(highest, minutes);
    }
    EXPECT_NEAR(-14.2, lowest, 0.2);
    EXPECT_NEAR(16.4, highest, 0.2);
}

TEST(SunInTheSky, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("sun", "SunAltitude")) {
        FastAstro engine;
        engine.SetLatLon(v.in[0], v.in[1]);
        EXPECT_NEAR(v.out[0], engine.SunAltitude(v.in[2], v.in[3]), relative(v.out[0], 1e-8)) << v.describe();
    }
    for (const Vector& v : vectorsOf("sun", "SunAzimuth")) {
        FastAstro engine;
        engine.SetLatLon(v.in[0], v.in[1]);
        EXPECT_NEAR(v.out[0], engine.SunAzimuth(v.in[2], v.in[3], v.in[4]), test::steepAzimuthDegrees) << v.describe();
    }
}

TEST(SunInTheSky, IsARealNumberEverywhereOnEarth) {
    for (double latitude = -90.0; latitude <= 90.0; latitude += 7.5) {
        for (double longitude = -180.0; longitude <= 180.0; longitude += 15.0) {
            for (double declination = -23.5; declination <= 23.5; declination += 4.7) {
                FastAstro engine;
                engine.SetLatLon(latitude, longitude);
                for (double offset = -360.0; offset <= 360.0; offset += 30.0) {
                    const double altitude = engine.SunAltitude(declination, offset);
                    ASSERT_TRUE(std::isfinite(altitude));
                    ASSERT_TRUE(std::isfinite(engine.SunAzimuth(declination, offset, altitude)))
                        << latitude << " " << longitude << " " << declination << " " << offset;
                }
            }
        }
    }
}

TEST(SunInTheSky, StandsDueSouthOrNorthAtNoonEverywhere) {
    for (double latitude = -89.0; latitude <= 89.0; latitude += 1.7) {
        for (double declination = -23.4; declination <= 23.4; declination += 0.37) {
            if (std::abs(latitude - declination) < 0.1) continue;
            FastAstro engine;
            engine.SetLatLon(latitude, 0.0);
            const double azimuth = engine.SunAzimuth(declination, 0.0, engine.SunAltitude(declination, 0.0));
            ASSERT_NEAR(latitude > declination ? 180.0 : 0.0, std::remainder(azimuth - 90.0, 360.0) + 90.0, 0.3)
                << latitude << " " << declination;
        }
    }
}

TEST(Refraction, IsARealNumberAtEveryAltitude) {
    for (double altitude = -90.0; altitude <= 90.0; altitude += 0.01) {
        ASSERT_TRUE(std::isfinite(FastAstro::Refract(altitude))) << altitude;
    }
    EXPECT_TRUE(std::isfinite(FastAstro::Refract(-5.110000133514404)));
}

}  // namespace
}  // namespace quode
