// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <functional>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "support/tolerances.h"
#include "support/vectors.h"

namespace quode {
namespace {

using test::Vector;
using test::vectorsOf;
using test::whole;
using Numbers = std::vector<double>;

VAKDate dateFrom(const Numbers& in, std::size_t at) {
    return VAKDateMake(whole(in[at + 2]), whole(in[at + 1]), whole(in[at]), whole(in[at + 3]), whole(in[at + 4]),
                       whole(in[at + 5]));
}

/// An engine with the date and the place at the start of every vector.
FastAstro engineFrom(const Numbers& in) {
    FastAstro engine;
    engine.SetCurrentDateTime(dateFrom(in, 0));
    engine.SetPlace(in[6], in[7], in[8], whole(in[9]), whole(in[10]), whole(in[11]), whole(in[12]), whole(in[13]),
                    in[14], 0);
    return engine;
}

constexpr std::size_t arguments = 15;

/// Runs an operation on every vector. The last tolerance applies to all further results.
void expectVectors(std::string_view op, const Numbers& tolerances,
                   const std::function<Numbers(FastAstro&, const Numbers&)>& run) {
    for (const Vector& v : vectorsOf("mooninfo", op)) {
        FastAstro engine = engineFrom(v.in);
        const Numbers actual = run(engine, Numbers(v.in.begin() + arguments, v.in.end()));
        ASSERT_EQ(v.out.size(), actual.size()) << v.describe();
        for (std::size_t i = 0; i < actual.size(); ++i) {
            EXPECT_NEAR(v.out[i], actual[i], tolerances[std::min(i, tolerances.size() - 1)])
                << v.describe() << " result " << i;
        }
    }
}

Numbers fieldsOf(const MoonInfo& m) {
    return {m.Dec,
            m.RA,
            m.TrueAlt,
            m.AppAlt,
            m.Azimuth,
            m.RiseTime,
            m.TransTime,
            m.SetTime,
            m.SideRealTime,
            m.Distance,
            m.HorParal,
            m.Diameter,
            m.Elongation,
            m.IlluminatedFraction,
            m.BrightInc ? 1.0 : 0.0,
            m.GHA};
}

Numbers fieldsOf(const SunData& s) {
    return {s.Dec,          s.RA,           s.Alt,      s.Azimuth,  s.RiseTime, s.TransTime, s.SetTime,
            s.SideRealTime, s.EquationTime, s.Distance, s.Diameter, s.Shadow,   s.GHA};
}

const Numbers moonTolerances = {test::preciseMoonDegrees,
                                test::preciseMoonHours,
                                1e-8,
                                1e-5,
                                1.6e-5,
                                test::clockHours,
                                0.0,
                                test::clockHours,
                                1e-8,
                                1e-3,
                                1e-8,
                                1e-8,
                                test::accurateSunDegrees,
                                0.0,
                                0.0,
                                test::preciseMoonDegrees};

TEST(MoonRiseAndSet, AgreeWithTheReference) {
    expectVectors("MoonRiseTime", {test::clockHours}, [](FastAstro& engine, const Numbers& in) {
        engine.MoonRiseTime(whole(in[0]), whole(in[1]), whole(in[2]));
        return Numbers{engine.MoonRise()};
    });
    expectVectors("MoonSetTime", {test::clockHours}, [](FastAstro& engine, const Numbers& in) {
        engine.MoonSetTime(whole(in[0]), whole(in[1]), whole(in[2]));
        return Numbers{engine.MoonSet()};
    });
    expectVectors("MoonRiseTime_then_MoonSetTime", {test::clockHours}, [](FastAstro& engine, const Numbers& in) {
        engine.MoonRiseTime(whole(in[0]), whole(in[1]), whole(in[2]));
        engine.MoonSetTime(whole(in[0]), whole(in[1]), whole(in[2]));
        return Numbers{engine.MoonRise(), engine.MoonSet()};
    });
    expectVectors("MoonRiseSetTrans", {test::clockHours}, [](FastAstro& engine, const Numbers& in) {
        MoonInfo moon;
        engine.MoonRiseSetTrans(dateFrom(in, 0), moon);
        return Numbers{moon.RiseTime, moon.TransTime, moon.SetTime};
    });
}

TEST(MoonRiseAndSet, AreMarkedOnADayWithoutThem) {
    FastAstro engine;
    engine.SetCurrentDate(28, 6, 2025);
    engine.SetPlace(80.0, 25.0, 1.0, 0, 0, 0, 0, 0, 0.0, 0);
    engine.MoonRiseTime(28, 6, 2025);
    EXPECT_EQ(-1650.0, engine.MoonRise());
    EXPECT_EQ(-1650.0 + 1.0 + 24.0, engine.getSomeInfoForQuodeWidget().MoonRise);
}

TEST(MoonTransit, IsTheSameConstantEveryDay) {
    expectVectors("MoonTransTime", {0.0}, [](FastAstro& engine, const Numbers& in) {
        return Numbers{engine.MoonTransTime(whole(in[0]), whole(in[1]), whole(in[2]))};
    });
    FastAstro engine;
    for (int day = 1; day <= 31; ++day) EXPECT_EQ(25.016666666666666, engine.MoonTransTime(day, 7, 2026));
}

TEST(MoonInformation, AgreesWithTheReference) {
    expectVectors("MoonInformation", moonTolerances, [](FastAstro& engine, const Numbers& in) {
        return fieldsOf(engine.MoonInformation(dateFrom(in, 0), in[6], in[7]));
    });
}

TEST(MoonInformation, KeepsTheRiseAndSetOfTheLastSearch) {
    expectVectors("MoonRiseSetTrans_then_MoonInformation", moonTolerances, [](FastAstro& engine, const Numbers& in) {
        MoonInfo moon = engine.Moon();
        engine.MoonRiseSetTrans(dateFrom(in, 0), moon);
        engine.setMoon(moon);
        return fieldsOf(engine.MoonInformation(dateFrom(in, 0), in[6], in[7]));
    });
}

TEST(Directions, AgreeWithTheReference) {
    const Numbers tolerances = {test::clockHours, test::clockHours, test::steepAzimuthDegrees, 1e-8,
                                test::accurateSunDegrees};
    const auto moonFields = [](const DirectionInfo& info) {
        return Numbers{info.MoonRise, info.MoonSet, info.MoonAzimuth, info.MoonAltitude, info.MoonElongation};
    };
    expectVectors("MoonInformationForDirection", tolerances, [&](FastAstro& engine, const Numbers& in) {
        DirectionInfo info;
        engine.MoonInformationForDirection(dateFrom(in, 0), info);
        return moonFields(info);
    });
    expectVectors("MoonInformationForDirectionWithoutLocalTime", tolerances, [&](FastAstro& engine, const Numbers& in) {
        DirectionInfo info;
        engine.MoonInformationForDirectionWithoutLocalTime(dateFrom(in, 0), info);
        return moonFields(info);
    });
    expectVectors("SunInformationForDirection", {test::clockHours, test::clockHours, 1e-5, test::accurateSunDegrees},
                  [](FastAstro& engine, const Numbers& in) {
                      DirectionInfo info;
                      engine.SunInformationForDirection(dateFrom(in, 0), info);
                      return Numbers{info.SunRise, info.SunSet, info.SunAzimuth, info.SunAltitude};
                  });
}

TEST(CrescentInformation, AgreesWithTheReference) {
    expectVectors("MoonInformationforCrescent", {1e-8, test::accurateSunDegrees, 1e-8},
                  [](FastAstro& engine, const Numbers& in) {
                      CrescentInfo info;
                      engine.MoonInformationforCrescent(dateFrom(in, 0), whole(in[6]), info);
                      const MoonInfo& moon = engine.Moon();
                      return Numbers{info.MoonAltitude, info.MoonElongation, moon.Dec,      moon.RA,
                                     moon.AppAlt,       moon.SideRealTime,   moon.Distance, moon.GHA};
                  });
    expectVectors("SunInformationForCrescent", {test::clockHours}, [](FastAstro& engine, const Numbers& in) {
        CrescentInfo info;
        engine.SunInformationForCrescent(dateFrom(in, 0), info);
        return Numbers{info.SunRise, info.SunSet};
    });
}

TEST(SunInformation, AgreesWithTheReference) {
    const Numbers tolerances = {test::accurateSunDegrees,
                                test::accurateSunDegrees,
                                test::accurateSunDegrees,
                                test::steepAzimuthDegrees,
                                test::clockHours,
                                test::clockHours,
                                test::clockHours,
                                1e-8,
                                1e-5,
                                1e-7,
                                0.0,
                                0.0,
                                1e-8};
    expectVectors("SunInformation", tolerances, [](FastAstro& engine, const Numbers& in) {
        return fieldsOf(engine.SunInformation(dateFrom(in, 0), in[6], in[7]));
    });
}

TEST(WidgetSky, AgreesWithTheReference) {
    expectVectors("getSomeInfoForQuodeWidget",
                  {test::clockHours, test::clockHours, test::clockHours, test::clockHours, 1e-6},
                  [](FastAstro& engine, const Numbers&) {
                      const WidgetSkyInfo sky = engine.getSomeInfoForQuodeWidget();
                      return Numbers{sky.SunRise, sky.SunSet, sky.MoonRise, sky.MoonSet, sky.MoonAltitudeOnSunSet};
                  });
}

TEST(WidgetSky, IsMarkedWhereTheSunDoesNotSet) {
    FastAstro engine;
    engine.SetCurrentDate(28, 6, 2025);
    engine.SetPlace(80.0, 25.0, 1.0, 0, 0, 0, 0, 0, 0.0, 0);
    const WidgetSkyInfo sky = engine.getSomeInfoForQuodeWidget();
    EXPECT_EQ(-1.0, sky.SunRise);
    EXPECT_EQ(-1.0, sky.SunSet);
    EXPECT_EQ(-1650.0, sky.MoonAltitudeOnSunSet);
}

TEST(LocalClock, MovesTheMoonsMarkByTheZone) {
    expectVectors("SetLocalTime", {1e-9}, [](FastAstro& engine, const Numbers& in) {
        double time = in[0];
        engine.SetLocalTime(time, VAKDateMake(whole(in[3]), whole(in[2]), whole(in[1]), 0, 0, 0));
        return Numbers{time};
    });
    expectVectors("SetUniversalTime", {0.0}, [](FastAstro& engine, const Numbers& in) {
        VAKDate date = dateFrom(in, 0);
        engine.SetUniversalTime(date);
        return Numbers{double(date.Years), double(date.Months),  double(date.Days),
                       double(date.Hours), double(date.Minutes), double(date.Seconds)};
    });
}

}  // namespace
}  // namespace quode
