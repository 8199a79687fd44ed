// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Properties of every convention, place and day, on random inputs.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "conventions/Sun.h"
#include "conventions/times.h"

namespace quode::conventions {
struct Case {
    Method method;
    Request request;
};

inline std::ostream& operator<<(std::ostream& out, const Case& it) {
    const Request& r = it.request;
    return out << textOf(it.method) << " at " << r.latitude << ',' << r.longitude << " on " << r.year << '-' << r.month
               << '-' << r.day << " offset " << r.offset;
}

/// Random places from pole to pole and across the date line, with a plausible clock.
class Cases {
  public:
    explicit Cases(unsigned seed) : random_(seed) {}

    Case next() {
        const auto conventions = allConventions();
        Case it;
        it.method.key = conventions[1 + random_() % (conventions.size() - 1)].key;
        if (random_() % 3 == 0) it.method.asrFactor = 1 + int(random_() % 2);
        if (random_() % 2 == 0) {
            const auto rules = highLatitudeNames();
            it.method.highLatitude = rules[random_() % rules.size()].rule;
        }
        Request& request = it.request;
        request.latitude = random_() % 50 == 0 ? (random_() % 2 == 0 ? 90.0 : -90.0) : uniform(-90.0, 90.0);
        request.longitude = random_() % 50 == 0 ? (random_() % 2 == 0 ? 180.0 : -180.0) : uniform(-180.0, 180.0);
        request.height = uniform(0.0, 3000.0);
        request.year = 1950 + int(random_() % 150);
        request.month = 1 + int(random_() % 12);
        request.day = 1 + int(random_() % 28);
        const double solar = std::round(request.longitude / 15.0);
        const double shift = random_() % 20 == 0 ? (solar < -9.0 ? 24.0 : 1.0) : 0.0;  // Samoa; summer time
        request.offset = std::clamp(solar + shift, -12.0, 14.0);
        return it;
    }

  private:
    double uniform(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }

    std::mt19937 random_;
};

inline void check(const Case& it) {
    const ConventionDay day = computeDay(it.method, it.request);
    double before = -48.0, latest = before;
    for (std::size_t i = 0; i < mainPrayerCount; ++i) {
        const Prayer prayer = prayerAt(i);
        const ConventionTime& time = day.time(prayer);
        ASSERT_TRUE(std::isfinite(time.hours) && std::isfinite(time.exact)) << it;
        if (!time.exists()) {
            EXPECT_EQ(time.hours, -1.0) << it;
            const HighLatitudeRule rule = conventionOf(it.method)->highLatitude;
            const bool mayBeMissing = rule == HighLatitudeRule::none || rule == HighLatitudeRule::nearestDay;
            EXPECT_TRUE(mayBeMissing && (prayer == Prayer::fajr || prayer == Prayer::isha || prayer == Prayer::maghrib))
                << it << ' ' << nameOf(prayer);
            continue;
        }
        // Added minutes may exceed the shortest days, by at most their own size.
        EXPECT_GE(time.hours, before - 15.0 / 60.0) << it << ' ' << nameOf(prayer);
        EXPECT_GT(time.hours, -14.0) << it;
        EXPECT_LT(time.hours, 38.0) << it;
        EXPECT_EQ(time.caution == Caution::outOfOrder, time.hours < latest) << it << ' ' << nameOf(prayer);
        before = time.hours;
        latest = std::max(latest, before);
    }
    const double dhuhr = day.time(Prayer::dhuhr).hours;
    for (const ConventionTime& asr : {day.asrStandard, day.asrHanafi}) {
        EXPECT_TRUE(asr.hours >= dhuhr || asr.caution == Caution::outOfOrder) << it;
    }
    EXPECT_GT(day.time(Prayer::dhuhr).hours, 0.0) << it;
    EXPECT_LT(day.time(Prayer::dhuhr).hours, 24.3) << it;
    EXPECT_GE(day.asrHanafi.hours, day.asrStandard.hours) << it;
    EXPECT_LE(std::abs(day.usedLatitude), std::abs(day.point.latitude)) << it;
}

inline void checkRandomCases(unsigned seed, int count) {
    Cases cases(seed);
    for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) check(cases.next());
}

}  // namespace quode::conventions
