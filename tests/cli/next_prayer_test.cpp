// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The coming prayer around midnight, where it is easily wrong.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program.h"

namespace quode::test {
namespace {

using nlohmann::json;

json nextAt(const std::string& moment, const std::string& city) {
    Program program;
    return program.with("QUODE_NOW", moment).run({"next", "--city", city, "--json"}).json().at("next");
}

json prayerOf(const std::string& city, const std::string& date, const std::string& key) {
    const json day = Program().run({"today", "--city", city, "--date", date, "--json"}).json();
    for (const json& prayer : day.at("prayers")) {
        if (prayer.at("key") == key) return prayer;
    }
    return nullptr;
}

TEST(NextPrayer, IsTheDawnOfTomorrowInTheLastSecondOfTheDay) {
    const json next = nextAt("2026-11-21T20:59:59Z", "Ankara");  // 23:59:59 there
    EXPECT_EQ(next.at("key"), "fajr");
    EXPECT_EQ(next.at("date"), "2026-11-22");
    EXPECT_EQ(next.at("instant"), prayerOf("Ankara", "2026-11-22", "fajr").at("instant"));
}

TEST(NextPrayer, BelongsToTheDayOfTheClockBesideTheDateLine) {
    const json next = nextAt("2026-11-21T03:00:00Z", "Apia");  // 16:00 there
    EXPECT_EQ(next.at("key"), "maghrib");
    EXPECT_EQ(next.at("date"), "2026-11-21");
    EXPECT_EQ(next.at("instant"), prayerOf("Apia", "2026-11-21", "maghrib").at("instant"));
    const Outcome page = Program().with("QUODE_NOW", "2026-11-21T03:00:00Z").run({"--city", "Apia"});
    EXPECT_EQ(page.out.find("after midnight"), std::string::npos) << page.out;
    const Outcome month = Program().run({"month", "2026-11", "--city", "Apia", "--format", "csv"});
    EXPECT_EQ(month.out.find("after_midnight"), std::string::npos) << month.out;
}

TEST(NextPrayer, IsTheSameAtMidnightOneSecondLater) {
    const json before = nextAt("2026-11-21T20:59:59Z", "Ankara"), after = nextAt("2026-11-21T21:00:00Z", "Ankara");
    EXPECT_EQ(after.at("key"), "fajr");
    EXPECT_EQ(after.at("date"), "2026-11-22");
    EXPECT_EQ(before.at("seconds_left").get<int>() - after.at("seconds_left").get<int>(), 1);
}

TEST(NextPrayer, IsTheNightPrayerOfYesterdayThatComesAfterMidnight) {
    const json next = nextAt("2026-06-21T22:30:00Z", "Oslo");  // 00:30 on 22 June there
    EXPECT_EQ(next.at("key"), "isha");
    EXPECT_EQ(next.at("date"), "2026-06-21");
    EXPECT_EQ(next.at("instant"), prayerOf("Oslo", "2026-06-21", "isha").at("instant"));
}

TEST(NextPrayer, IsDawnAfterThatNightPrayer) {
    const json next = nextAt("2026-06-21T23:15:00Z", "Oslo");  // 01:15, between night prayer and dawn
    EXPECT_EQ(next.at("key"), "fajr");
    EXPECT_EQ(next.at("date"), "2026-06-22");
}

TEST(NextPrayer, IsTheOneAfterAtItsVeryMinute) {
    const std::string noon = prayerOf("Ankara", "2026-11-21", "dhuhr").at("instant");
    EXPECT_EQ(nextAt(noon, "Ankara").at("key"), "asr");
}

TEST(NextPrayer, FollowsTheClockOfTheCityNotOfTheMachine) {
    Program program;  // in Istanbul the day is still the 21st
    const json day = program.with("QUODE_NOW", "2026-11-21T12:00:00Z").run({"--city", "Auckland", "--json"}).json();
    EXPECT_EQ(day.at("date"), "2026-11-22");
}

TEST(NextPrayer, IsMarkedInTheTableOfToday) {
    const Outcome run = Program().run({"--city", "Ankara"});
    const std::string line = run.lineWith("›");
    EXPECT_NE(line.find("Sunrise"), std::string::npos) << run.out;
    EXPECT_NE(line.find("in "), std::string::npos) << run.out;
}

TEST(NextPrayer, OfTomorrowHasARowOfItsOwn) {
    Program program;
    const Outcome run = program.with("QUODE_NOW", "2026-11-21T20:00:00Z").run({"--city", "Ankara"});
    const std::string line = run.lineWith("›");
    EXPECT_NE(line.find("Fajr"), std::string::npos) << run.out;
    EXPECT_NE(line.find("tomorrow"), std::string::npos) << run.out;
}

TEST(NextPrayer, IsNotMarkedOnAnotherDay) {
    EXPECT_EQ(Program().run({"--city", "Ankara", "--date", "2026-11-22"}).lineWith("›"), "");
}

TEST(NextPrayer, FillsATemplateForStatusBars) {
    Program program;
    const Outcome run =
        program.run({"next", "--city", "Ankara", "--format", "{{{key}}} {time24} {date} {city} {minutes}"});
    const json next = nextAt("2026-11-21T04:00:00Z", "Ankara");
    const int minutes = (next.at("seconds_left").get<int>() + 59) / 60;
    std::string expected = "{";
    expected += next.at("key").get<std::string>() + "} " + next.at("time").get<std::string>() + " ";
    expected += next.at("date").get<std::string>() + " Ankara " + std::to_string(minutes) + "\n";
    EXPECT_EQ(run.out, expected);
}

TEST(NextPrayer, RefusesATemplateThatCannotBeFilled) {
    for (const char* format : {"{nothing}", "{name", "name}"}) {
        const Outcome run = Program().run({"next", "--format", format});
        EXPECT_EQ(run.code, 2) << format;
        EXPECT_NE(run.err.find("--format"), std::string::npos) << run.err;
    }
}

TEST(NextPrayer, IsALineOfJsonForWaybar) {
    const Outcome run = Program().run({"next", "--city", "Berlin", "--format", "waybar"});
    ASSERT_EQ(run.lines().size(), 1u) << run.out;
    const nlohmann::json bar = run.json();
    EXPECT_EQ(bar.at("text"), "Fajr 05:15");
    EXPECT_EQ(bar.at("class"), nlohmann::json({"fajr", "soon"}));
    EXPECT_NE(bar.at("tooltip").get<std::string>().find("<b>Fajr 05:15</b>\nSunrise 07:29"), std::string::npos);
    const nlohmann::json later = Program().run({"next", "--city", "Tokyo", "--format", "waybar"}).json();
    EXPECT_EQ(later.at("class"), nlohmann::json({later.at("alt").get<std::string>()}));
}

}  // namespace
}  // namespace quode::test
