// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/Sun.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>

#include "conventions/SolarDay.h"
#include "support/fixtures.h"

namespace quode::conventions {
namespace {

TEST(Sun, agreesWithAnEphemerisFittedToJplsToASecondOfArc) {
    std::ifstream file(test::fixture("truth/sun_places.csv"));
    std::string line;
    int count = 0;
    while (std::getline(file, line)) {
        if (line.empty() || !std::isdigit(static_cast<unsigned char>(line[0]))) continue;
        const std::size_t a = line.find(','), b = line.find(',', a + 1), c = line.find(',', b + 1);
        const double julianDay = std::stod(line);
        const SunPlace sun = sunAt(julianDay);
        EXPECT_NEAR(sun.declination, std::stod(line.substr(b + 1)), 1.0 / 3600.0) << julianDay;
        EXPECT_NEAR(sun.equationOfTime * 3600.0, std::stod(line.substr(c + 1)) * 3600.0, 0.1) << julianDay;
        EXPECT_NEAR(deltaT(julianDay), std::stod(line.substr(a + 1)), 1.5) << julianDay;
        ++count;
    }
    EXPECT_EQ(count, 200);
}

TEST(Sun, standsAtTheEventsAltitudeToATenthOfASecond) {
    // The altitude changes by at most 15" in a second of time.
    const SolarDay day(julianDayOf(2026, 5, 14), 55.6, 13.0, 2.0, SunMoment::event);
    for (const double altitude : {-0.8333, -12.0, 30.0}) {
        for (const auto side : {SolarDay::Side::morning, SolarDay::Side::evening}) {
            const auto hours = day.atAltitude(altitude, side);
            ASSERT_TRUE(hours);
            const SunPlace sun = sunAt(day.julianDay() + *hours / 24.0);
            const double radian = 180.0 / M_PI;
            const double hourAngle = 15.0 * (*hours - 12.0 + 13.0 / 15.0 + sun.equationOfTime) / radian;
            const double latitude = 55.6 / radian, declination = sun.declination / radian;
            const double sine = std::sin(latitude) * std::sin(declination) +
                                std::cos(latitude) * std::cos(declination) * std::cos(hourAngle);
            EXPECT_NEAR(std::asin(sine) * radian, altitude, 1.5 / 3600.0);
        }
    }
}

TEST(Sun, doesNotRiseInPolarNight) {
    const SolarDay night(julianDayOf(2026, 12, 21), 70.0, 20.0, 1.0, SunMoment::event);
    EXPECT_FALSE(night.atAltitude(-0.8333, SolarDay::Side::morning));
    const SolarDay day(julianDayOf(2026, 6, 21), 70.0, 20.0, 1.0, SunMoment::event);
    EXPECT_FALSE(day.atAltitude(-0.8333, SolarDay::Side::evening));
}

TEST(Sun, hasItsNoonWithinTheCivilDayWhereClockAndLongitudeAreADayApart) {
    const SolarDay samoa(julianDayOf(2026, 3, 1), -13.8, -171.8, 13.0, SunMoment::event);
    EXPECT_NEAR(samoa.transit() + 13.0, 12.66, 0.05);
}

}  // namespace
}  // namespace quode::conventions
