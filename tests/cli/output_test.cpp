// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// JSON keys, colours, help and version.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program.h"

namespace quode::test {
namespace {

using nlohmann::json;

struct Answer {
    std::vector<std::string> words;
    std::vector<std::string> keys;
};

class Json : public testing::TestWithParam<Answer> {};

TEST_P(Json, HasItsKeysInEveryLanguage) {
    for (const char* language : {"tr", "en"}) {
        std::vector<std::string> words = GetParam().words;
        words.insert(words.end(), {"--json", "--lang", language});
        const Program program;
        program.installCalendarService();
        const Outcome run = program.run(words);
        ASSERT_EQ(run.code, 0) << run.err;
        const auto answer = nlohmann::ordered_json::parse(run.out);
        std::vector<std::string> keys;
        for (const auto& member : answer.items()) keys.push_back(member.key());
        EXPECT_EQ(keys, GetParam().keys);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, Json,
    testing::Values(Answer{{"today"},
                           {"place", "date", "weekday", "is_today", "hijri", "prayers", "night", "next", "sky", "zone",
                            "qibla", "magnetic_declination", "margin", "rule", "notes", "rounding", "computed_latitude",
                            "method", "warnings"}},
                    Answer{{"next"}, {"place", "next"}}, Answer{{"month"}, {"place", "rule", "days", "warnings"}},
                    Answer{{"year"}, {"place", "rule", "days", "warnings"}},
                    Answer{{"qibla"},
                           {"place", "date", "qibla", "compass_bearing", "magnetic_declination", "current_declination",
                            "current_compass_bearing", "distance_km", "kaaba_due", "sun_in_direction"}},
                    Answer{{"moon"},
                           {"place", "date", "described_at", "phase", "rise", "transit", "set", "illuminated_percent",
                            "waxing", "altitude_at_sunset", "altitude", "azimuth", "elongation", "distance_km",
                            "days_since_new_moon", "days_to_new_moon"}},
                    Answer{{"moon", "--phases", "2026"}, {"place", "year", "phases"}},
                    Answer{{"sky"}, {"place", "date", "sky"}},
                    Answer{{"hijri"}, {"date", "weekday", "hijri", "calendars"}},
                    Answer{{"calendar"}, {"date", "calendar", "weekday", "hijri", "rumi", "season"}},
                    Answer{{"city", "search", "Ankara"}, {"cities"}},
                    Answer{{"city", "show", "Ankara"}, {"place", "clock", "zone_data", "warnings"}},
                    Answer{{"city", "list"}, {"cities"}}, Answer{{"city", "add", "Ankara"}, {"cities"}},
                    Answer{{"city", "home", "Ankara"}, {"cities"}},
                    Answer{{"alarm", "list"}, {"city", "alarms", "ringer"}},
                    Answer{{"alarm", "set", "1", "--offset", "-5"}, {"city", "alarms", "ringer"}},
                    Answer{{"alarm", "on", "all"}, {"city", "alarms", "ringer"}},
                    Answer{{"alarm", "off", "6"}, {"city", "alarms", "ringer"}},
                    Answer{{"alarm", "upcoming"}, {"city", "rings", "ringer"}}, Answer{{"settings"}, {"settings"}},
                    Answer{{"settings", "calendar", "vdir"}, {"settings"}},
                    Answer{{"calendar", "connect", "evolution"}, {"connected", "description", "ringer"}},
                    Answer{{"calendar", "disconnect"}, {"connected", "description", "ringer"}},
                    Answer{{"doctor"}, {"ok", "checks"}},
                    Answer{{"doctor", "zones"}, {"first", "last", "zones", "disagreements"}}));

TEST(JsonOutput, TellsTimesWith24HoursInEveryLocale) {
    Program program;
    const json day = program.with("LC_ALL", "en_US.UTF-8").run({"--city", "Ankara", "--json"}).json();
    EXPECT_EQ(day.at("prayers")[4].at("time").get<std::string>().size(), 5u);
    EXPECT_GT(day.at("prayers")[4].at("time").get<std::string>(), "12:00");
}

TEST(JsonOutput, MayBeAskedForBeforeTheCommand) {
    EXPECT_EQ(Program().run({"--json", "--city", "Ankara", "next"}).json().at("place").at("city").at("name"), "Ankara");
}

TEST(Output, HasNoColoursWhenItIsNoTerminal) {
    EXPECT_EQ(Program().run({}).out.find('\x1b'), std::string::npos);
}

TEST(Output, HasColoursOnATerminalUnlessTheyAreUnwanted) {
    const auto isColoured = [](Program& program, const std::string& words) {
        const Outcome run = program.runShell("onTerminal " + words);
        EXPECT_NE(run.out.find("Maghrib"), std::string::npos) << run.out << run.err;
        return run.out.find('\x1b') != std::string::npos;
    };
    Program program;
    EXPECT_TRUE(isColoured(program, "today"));
    EXPECT_FALSE(isColoured(program, "today --no-color"));
    EXPECT_FALSE(isColoured(program.with("NO_COLOR", "1"), "today"));
}

TEST(Output, DrawsTheMoonOnATerminal) {
    Program program;
    EXPECT_NE(program.runShell("onTerminal moon").out.find("█"), std::string::npos);
    EXPECT_EQ(program.runShell("onTerminal moon --plain").out.find("█"), std::string::npos);
}

TEST(Output, OfTheVersionNamesTheSourcesOfTheData) {
    const Outcome run = Program().run({"--version"});
    EXPECT_EQ(run.code, 0);
    EXPECT_TRUE(run.out.starts_with("quode ")) << run.out;
    for (const char* source : {"GeoNames", "CC BY 4.0", "CLDR", "IANA", "City database: "}) {
        EXPECT_NE(run.out.find(source), std::string::npos) << source;
    }
}

TEST(Output, OfTheHelpFitsATerminal) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"--help"},
                                                  {"month", "--help"},
                                                  {"next", "--help"},
                                                  {"moon", "--help"},
                                                  {"hijri", "--help"},
                                                  {"city", "--help"},
                                                  {"city", "search", "--help"},
                                                  {"doctor", "zones", "--help"}}) {
        const Outcome run = Program().run(words);
        EXPECT_EQ(run.code, 0);
        for (const std::string& line : run.lines()) EXPECT_LE(widthOf(line), 80) << line;
    }
    EXPECT_NE(Program().run({"city", "search", "--help"}).out.find("Usage: quode city search "), std::string::npos);
    const std::string help = Program().run({"--help"}).out;
    for (const char* text : {"Exit codes:", "QUODE_CITY", "QUODE_NOW", "doctor"}) {
        EXPECT_NE(help.find(text), std::string::npos) << text;
    }
}

}  // namespace
}  // namespace quode::test
