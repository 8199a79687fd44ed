// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/dates.h"

#include <gtest/gtest.h>

#include <optional>

#include "app/failure.h"

namespace quode::app {
namespace {

std::optional<ExitCode> failureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.code();
    }
    return std::nullopt;
}

TEST(Dates, AreReadInIsoForm) {
    EXPECT_EQ(isoDate(parseDate("2026-11-21")), "2026-11-21");
    EXPECT_EQ(isoDate(parseDate("0001-01-01")), "0001-01-01");
    EXPECT_EQ(isoDate(parseDate("9999-12-31")), "9999-12-31");
}

TEST(Dates, ThatDoNotExistAreRefused) {
    for (const char* text :
         {"2026-02-29", "2026-02-30", "2026-13-01", "2026-00-10", "2026-11-00", "2026-11-31", "0000-01-01",
          "10000-01-01", "2026-11", "2026/11/21", "-5-01-01", "", "2026-11-21x", "99999999999-01-01"}) {
        EXPECT_EQ(failureOf([&] { parseDate(text); }), ExitCode::usage) << text;
    }
}

TEST(Dates, BeforeTheReformAreOfTheJulianCalendar) {
    EXPECT_EQ(isoDate(parseDate("1500-02-29")), "1500-02-29");  // a leap year there
    EXPECT_EQ(failureOf([] { parseDate("1582-10-05"); }), ExitCode::usage);
    EXPECT_EQ(failureOf([] { parseDate("1582-10-14"); }), ExitCode::usage);
    EXPECT_EQ(weekdayOf(parseDate("1582-10-04")), 4);  // Thursday, followed by
    EXPECT_EQ(weekdayOf(parseDate("1582-10-15")), 5);  // Friday
    EXPECT_EQ(daysOf({1582, 10}).size(), 21u);
}

TEST(Dates, OfTheHijriTableKnowItsOddMonths) {
    EXPECT_EQ(isoDate(parseHijriDate("1445-12-28")), "1445-12-28");
    EXPECT_EQ(failureOf([] { parseHijriDate("1445-12-29"); }), ExitCode::usage);
    EXPECT_EQ(isoDate(parseHijriDate("1446-01-31")), "1446-01-31");
    EXPECT_EQ(failureOf([] { parseHijriDate("1429-11-30"); }), ExitCode::notFound);
    EXPECT_EQ(failureOf([] { parseHijriDate("1471-01-01"); }), ExitCode::notFound);
}

TEST(Moments, AreReadWithTheirZone) {
    using std::chrono::sys_seconds;
    const sys_seconds expected{std::chrono::seconds{1795233600}};  // 2026-11-21 04:00:00 UTC
    EXPECT_EQ(parseMoment("2026-11-21T04:00:00Z"), expected);
    EXPECT_EQ(parseMoment("2026-11-21T07:00:00+03:00"), expected);
    EXPECT_EQ(parseMoment("2026-11-20T20:30:00-07:30"), expected);
    EXPECT_EQ(isoMoment(expected), "2026-11-21T04:00:00Z");
    for (const char* text :
         {"now", "2026-11-21", "2026-11-21T04:00:00", "2026-11-21T24:00:00Z", "2026-11-21T04:00:00+3"}) {
        EXPECT_EQ(failureOf([&] { parseMoment(text); }), ExitCode::usage) << text;
    }
}

}  // namespace
}  // namespace quode::app
