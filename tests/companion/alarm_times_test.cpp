// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/alarm_times.h"

#include "alarms/alarm_moment.h"
#include "fixture.h"

namespace quode::test {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;

const Site istanbul{41.0138, 28.9497, {3.0, false, 0, 0, 0, 0, 0}, true};
const Site berlin{52.52, 13.405, {1.0, true, 2, weekdayRule(0, 4), 9, weekdayRule(0, 4), 1}, true};
const Site pole{90.0, 0.0, {}, true};

TEST(AlarmTimes, RingOncePerDayAndPrayer) {
    const std::vector<AlarmRule> alarms{{200, 0}, {204, -15}};
    const auto rings = alarmOccurrences(istanbul, alarms, utc("2026-05-01 00:00"), utc("2026-05-31 00:00"));
    EXPECT_EQ(rings.size(), 60U);
    for (std::size_t i = 2; i < rings.size(); ++i) {
        EXPECT_EQ(rings[i].code, rings[i - 2].code);
        EXPECT_LT(std::chrono::abs(rings[i].due - rings[i - 2].due - days(1)), minutes(3));
    }
    EXPECT_EQ(rings[1].prayer - rings[1].due, minutes(15));
}

TEST(AlarmTimes, RingAtTheMinuteThatIsShown) {
    const CityDay day = computeCityDay(istanbul, VAKDateMake(17, 10, 2026, 0, 0, 0));
    const std::vector<AlarmRule> alarms{{202, 7}};
    const auto rings = alarmOccurrences(istanbul, alarms, utc("2026-10-16 21:00"), utc("2026-10-17 21:00"));
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_EQ(rings[0].prayer, utc("2026-10-16 21:00") + minutes(shownMinute(day.times.Ogle)));
    EXPECT_EQ(rings[0].due, rings[0].prayer + minutes(7));
    EXPECT_EQ(rings[0].date, VAKDateMake(17, 10, 2026, 0, 0, 0));
}

TEST(AlarmTimes, DivideTimeWithoutGapOrOverlap) {
    std::vector<AlarmRule> alarms;
    for (int code = 200; code <= 205; ++code) alarms.push_back({code, (code - 203) * 240});
    const auto from = utc("2026-03-20 00:00");
    const auto whole = alarmOccurrences(berlin, alarms, from, from + days(14));
    std::vector<AlarmOccurrence> pieces;
    for (auto start = from; start < from + days(14); start += hours(7)) {
        const auto piece = alarmOccurrences(berlin, alarms, start, std::min(start + hours(7), from + days(14)));
        pieces.insert(pieces.end(), piece.begin(), piece.end());
    }
    EXPECT_EQ(pieces, whole);
    EXPECT_EQ(whole.size(), 84U);
}

TEST(AlarmTimes, DoNotRingWhereThePrayerHasNoTime) {
    const auto from = utc("2026-06-20 00:00");
    for (int code = 200; code <= 205; ++code) {
        const std::vector<AlarmRule> alarms{{code, 0}};
        const bool exists =
            timeOfPrayer(computeCityDay(pole, VAKDateMake(21, 6, 2026, 0, 0, 0)).times, code).has_value();
        const auto rings = alarmOccurrences(pole, alarms, from + days(1), from + days(2));
        EXPECT_EQ(rings.empty(), !exists) << code;
    }
}

TEST(AlarmTimes, TellNoPrayTimeForAMomentThatIsTooFar) {
    const ZonedClock clock(istanbulRule, "Europe/Istanbul");
    const auto now = utc("2026-10-17 12:00");
    EXPECT_TRUE(prayTimeFor(clock, now, now + hours(23), 0));
    EXPECT_FALSE(prayTimeFor(clock, now, now + hours(72), 0));
}

TEST(AlarmTimes, CountHoursPastMidnightOnlyWhereTheyMust) {
    const ZonedClock clock("UTC0");
    const auto prayTime = [&](const char* now, const char* due, int offset) {
        return prayTimeFor(clock, utc(now), utc(due), offset).value_or(-99.0);
    };
    EXPECT_NEAR(prayTime("2026-10-17 03:00", "2026-10-17 05:15", 0), 5.25, 0.01);
    EXPECT_NEAR(prayTime("2026-10-17 12:00", "2026-10-18 05:15", 0), 5.25, 0.01);
    EXPECT_NEAR(prayTime("2026-10-17 05:15", "2026-10-18 05:16", 0), 29.267, 0.01);  // the same minute is not over yet
    EXPECT_NEAR(prayTime("2026-10-17 00:05", "2026-10-17 00:15", 30), -0.25, 0.01);  // yesterday's 23:45
    EXPECT_NEAR(prayTime("2026-10-17 23:50", "2026-10-18 23:45", -30), 24.25, 0.01);
}

}  // namespace
}  // namespace quode::test
