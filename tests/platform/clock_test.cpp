// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The real clock, in several zones.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "common/GlobalFuncs.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"
#include "support/scoped_variable.h"

namespace quode {
namespace {

using namespace std::chrono_literals;
using test::ScopedVariable;

Clock::TimePoint utc(std::chrono::year_month_day date, std::chrono::seconds time) {
    return std::chrono::sys_days(date) + time;
}

struct ZoneCase {
    const char* zone;
    Clock::TimePoint moment;
    CivilTime local;
    std::chrono::seconds offset;
};

TEST(SystemClock, ShowsTheLocalTimeOfItsZone) {
    using std::chrono::January, std::chrono::July, std::chrono::March, std::chrono::December;
    const std::vector<ZoneCase> cases{
        {"Asia/Kathmandu", utc(December / 31 / 2023, 18h + 15min), {2024, 1, 1, 0, 0, 0}, 5h + 45min},
        {"America/St_Johns", utc(January / 1 / 2024, 3h + 29min + 59s), {2023, 12, 31, 23, 59, 59}, -3h - 30min},
        {"America/St_Johns", utc(July / 1 / 2024, 12h), {2024, 7, 1, 9, 30, 0}, -2h - 30min},
        {"Europe/Berlin", utc(March / 31 / 2024, 59min + 59s), {2024, 3, 31, 1, 59, 59}, 1h},
        {"Europe/Berlin", utc(March / 31 / 2024, 1h), {2024, 3, 31, 3, 0, 0}, 2h},
        {"Pacific/Kiritimati", utc(December / 31 / 2023, 10h), {2024, 1, 1, 0, 0, 0}, 14h},
        {"UTC", utc(December / 31 / 1969, 23h + 59min + 59s), {1969, 12, 31, 23, 59, 59}, 0h},
    };
    for (const ZoneCase& tested : cases) {
        const ScopedVariable zone("TZ", tested.zone);
        EXPECT_EQ(systemClock()->civilTime(tested.moment), tested.local) << tested.zone;
        EXPECT_EQ(systemClock()->utcOffset(tested.moment), tested.offset) << tested.zone;
        EXPECT_EQ(systemClock()->zoneName(), tested.zone);
    }
}

TEST(SystemClock, FollowsTheMachine) {
    const auto before = std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
    const auto now = systemClock()->now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, std::chrono::system_clock::now());
}

TEST(SystemClock, GivesTheServicesTheLocalDateInAnyZone) {
    for (const char* name : {"Asia/Kathmandu", "America/St_Johns", "UTC", "Pacific/Kiritimati"}) {
        const ScopedVariable zone("TZ", name);
        test::FakePlatform fake;
        Platform platform = fake.platform();
        platform.clock = systemClock();
        const GlobalFuncs& services = GlobalFuncs::startUp(platform);

        VAKDate now;
        CivilTime before;
        CivilTime after;
        do {  // again when the second changes in between
            before = systemClock()->civilTime(systemClock()->now());
            now = services.GetCurrentDateTime();
            after = systemClock()->civilTime(systemClock()->now());
        } while (before != after);
        EXPECT_EQ(VAKDateMake(now.Days, now.Months, now.Years, now.Hours, now.Minutes, now.Seconds),
                  VAKDateMake(after.day, after.month, after.year, after.hour, after.minute, after.second));
        EXPECT_GE(now.MSeconds, 0.0);
        EXPECT_LT(now.MSeconds, 1.0);
    }
}

}  // namespace
}  // namespace quode
