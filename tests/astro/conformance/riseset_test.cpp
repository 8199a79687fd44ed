// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "astro/FastAstro.h"
#include "support/tolerances.h"
#include "support/vectors.h"

namespace quode {
namespace {

using test::relative;
using test::Vector;
using test::vectorsOf;
using test::whole;

FastAstro engineAt(double latitude, double longitude, double zone) {
    FastAstro engine;
    Place place;
    place.GMTValue = zone;
    engine.setIPlace(place);
    engine.SetLatLon(latitude, longitude);
    return engine;
}

void expectEvents(const Vector& v, const FastAstro& engine) {
    EXPECT_NEAR(v.out[0], engine.UTRise(), test::clockHours) << v.describe();
    EXPECT_NEAR(v.out[1], engine.UTSet(), test::clockHours) << v.describe();
    EXPECT_EQ(v.out[2] != 0.0, engine.Rise()) << v.describe();
    EXPECT_EQ(v.out[3] != 0.0, engine.Sett()) << v.describe();
}

TEST(Elevation, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("riseset", "SinElev")) {
        EXPECT_NEAR(v.out[0], FastAstro::SinElev(v.in[0], v.in[1], v.in[2], v.in[3], v.in[4]), 1e-9) << v.describe();
    }
    for (const Vector& v : vectorsOf("riseset", "SunElev")) {
        EXPECT_NEAR(v.out[0], FastAstro::SunElev(v.in[0], v.in[1], v.in[2], v.in[3], v.in[4]), 1e-7) << v.describe();
    }
}

TEST(Parabola, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("riseset", "Quad")) {
        FastAstro engine;
        EXPECT_EQ(whole(v.out[0]), engine.Quad(v.in[0], v.in[1], v.in[2])) << v.describe();
        EXPECT_NEAR(v.out[1], engine.YE(), relative(v.out[1])) << v.describe();
        EXPECT_NEAR(v.out[2], engine.Zero1(), relative(v.out[2])) << v.describe();
        EXPECT_NEAR(v.out[3], engine.Zero2(), relative(v.out[3])) << v.describe();
        EXPECT_NEAR(v.out[4], engine.DX(), relative(v.out[4])) << v.describe();
    }
}

TEST(Parabola, WithoutRootsKeepsTheOldOnes) {
    FastAstro engine;
    engine.setZero1(0.25);
    engine.setZero2(0.5);
    EXPECT_EQ(0, engine.Quad(2.0, 2.0, 1.0));
    EXPECT_EQ(0.25, engine.Zero1());
    EXPECT_EQ(0.5, engine.Zero2());
}

TEST(SunriseWithinTwoHours, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("riseset", "RiseSet")) {
        FastAstro engine = engineAt(v.in[0], v.in[1], 0.0);
        engine.setUTRise(-1.0);
        engine.setUTSet(-1.0);
        engine.RiseSet(whole(v.in[2]), whole(v.in[3]), whole(v.in[4]), whole(v.in[5]));
        expectEvents(v, engine);
    }
}

TEST(SunriseAndSunset, AgreeWithTheReference) {
    for (const Vector& v : vectorsOf("riseset", "SunRiseSet")) {
        FastAstro engine = engineAt(v.in[0], v.in[1], v.in[2]);
        engine.SunRiseSet(whole(v.in[3]), whole(v.in[4]), whole(v.in[5]));
        expectEvents(v, engine);
    }
}

TEST(SunriseAndSunset, AreMarkedMissingInPolarDayAndNight) {
    for (const int month : {6, 12}) {
        FastAstro engine = engineAt(78.22, 15.65, 1.0);
        engine.SunRiseSet(21, month, 2026);
        EXPECT_EQ(-1.0, engine.UTRise());
        EXPECT_EQ(-1.0, engine.UTSet());
        EXPECT_FALSE(engine.Rise());
        EXPECT_FALSE(engine.Sett());
    }
}

TEST(SunriseAndSunset, MayComeAloneOnAPolarTransitionDay) {
    int alone = 0;
    for (double latitude = 66.0; latitude < 72.0; latitude += 0.5) {
        for (int day = 1; day <= 31; ++day) {
            FastAstro engine = engineAt(latitude, 30.0, 3.0);  // the Sun is lowest at one in the morning
            engine.SunRiseSet(day, 5, 2026);
            if (engine.Rise() == engine.Sett()) continue;
            ++alone;
            EXPECT_EQ(-1.0, engine.Rise() ? engine.UTSet() : engine.UTRise());
        }
    }
    EXPECT_GE(alone, 1);
}

TEST(SunriseAndSunset, OfTheEasternmostZoneReachIntoThePreviousUniversalDay) {
    FastAstro engine = engineAt(1.87, -157.43, 14.0);  // Kiritimati
    engine.SunRiseSet(20, 3, 2026);
    EXPECT_NEAR(6.6 - 14.0 + 24.0, engine.UTRise(), 0.2);
    EXPECT_NEAR(18.7 - 14.0, engine.UTSet(), 0.2);
}

TEST(Transit, AgreesWithTheReference) {
    for (const Vector& v : vectorsOf("riseset", "SunRiseSetTrans")) {
        FastAstro engine = engineAt(v.in[0], v.in[1], v.in[2]);
        SunData info;
        info.RA = v.in[6];
        engine.SunRiseSetTrans(VAKDateMake(whole(v.in[5]), whole(v.in[4]), whole(v.in[3]), 0, 0, 0), info);
        EXPECT_NEAR(v.out[0], info.RiseTime, test::clockHours) << v.describe();
        EXPECT_NEAR(v.out[1], info.SetTime, test::clockHours) << v.describe();
        EXPECT_NEAR(v.out[2], info.TransTime, test::clockHours) << v.describe();
        EXPECT_NEAR(v.out[3], info.EquationTime, 1e-6) << v.describe();
    }
}

}  // namespace
}  // namespace quode
