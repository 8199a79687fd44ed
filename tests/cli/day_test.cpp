// The page of a day: its times against the reference values, and what it says about them.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "cli/text_layout.h"
#include "program.h"
#include "support/vectors.h"

namespace quode::test {
namespace {

using nlohmann::json;

std::string text(double value) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", value);
    return buffer;
}

std::string dateOf(const Vector& vector) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", int(vector.in[10]), int(vector.in[11]), int(vector.in[12]));
    return buffer;
}

/// Slots of the reference times in the order of the prayers 200 to 208.
constexpr int slots[] = {0, 1, 2, 3, 4, 5, 8, 6, 9};

TEST(Day, HasTheReferenceTimes) {
    // Coordinates take the clock of the nearest city; the vectors whose clock is another one are left out.
    int compared = 0;
    for (const Vector& vector : vectorsOf("prayer", "CalculatePrayTimes")) {
        const bool hasStandardMargin = vector.in[9] == 1.0;
        if (!hasStandardMargin) continue;
        const std::string point = text(vector.in[0]) + "," + text(vector.in[1]);
        const Outcome run = Program().run({"today", "--city", point, "--date", dateOf(vector), "--json"});
        ASSERT_EQ(run.code, 0) << run.err;
        const json day = run.json();
        if (day.at("zone").at("offset_hours") != vector.members.at("GMTValue")[0]) continue;
        ++compared;
        for (std::size_t i = 0; i < std::size(slots); ++i) {
            const double expected = vector.members.at("times")[std::size_t(slots[i])];
            const json& hours = day.at("prayers")[i].at("hours");
            if (expected == -1.0) {
                EXPECT_TRUE(hours.is_null()) << vector.describe();
            } else {
                ASSERT_TRUE(hours.is_number()) << vector.describe();
                EXPECT_NEAR(hours.get<double>(), expected, 1e-6) << vector.describe();
            }
        }
        const auto& flags = vector.members.at("flags");
        EXPECT_EQ(day.at("computed_latitude").is_null(), flags[0] == 0.0) << vector.describe();
        EXPECT_EQ(day.at("prayers")[0].at("of_earlier_day").get<bool>(), flags[1] != 0.0) << vector.describe();
        EXPECT_EQ(day.at("prayers")[5].at("of_earlier_day").get<bool>(), flags[2] != 0.0) << vector.describe();
    }
    EXPECT_GE(compared, 10);
}

TEST(Day, ShowsTheNineTimesInTheirOrder) {
    const Outcome run = Program().run({"--city", "Ankara", "--lang", "tr"});
    std::size_t at = 0;
    for (const char* name :
         {"İmsak", "Güneş", "Öğle", "İkindi", "Akşam", "Yatsı", "İşrak", "Asr-ı Sânî", "İsfirâr-ı Şems"}) {
        const std::size_t found = run.out.find(name, at);
        ASSERT_NE(found, std::string::npos) << name << " in\n" << run.out;
        at = found;
    }
}

TEST(Day, HasItsCaptionsWithoutTheColonOfTheLanguagePack) {
    const Outcome french = Program().run({"--city", "Ankara", "--lang", "fr"});
    EXPECT_NE(french.out.find("\n   Lune au coucher du soleil  +"), std::string::npos) << french.out;
    EXPECT_EQ(french.out.find("\u00a0  "), std::string::npos) << french.out;
}

TEST(Day, NamesItsHijriCalendar) {
    const Outcome run = Program().run({"--city", "Ankara", "--date", "2024-08-05"});
    EXPECT_NE(run.out.find("31 Muharram 1446 (Hijri, by the table)"), std::string::npos) << run.out;
    const Outcome outside = Program().run({"--city", "Ankara", "--date", "2048-10-09"});
    EXPECT_NE(outside.out.find("outside the Hijri table"), std::string::npos) << outside.out;
    EXPECT_TRUE(Program().run({"--city", "Ankara", "--date", "2048-10-09", "--json"}).json().at("hijri").is_null());
}

TEST(Day, TellsTheTimeAsTheLocaleDoes) {
    Program program;
    program.with("LC_ALL", "en_US.UTF-8");
    EXPECT_NE(program.run({"--city", "Ankara"}).lineWith("Maghrib").find(" pm"), std::string::npos);
    program.with("LC_ALL", "tr_TR.UTF-8");
    const Outcome turkish = program.run({"--city", "Ankara"});
    EXPECT_NE(turkish.out.find("Akşam"), std::string::npos) << turkish.out;
    EXPECT_NE(turkish.out.find("Cumartesi 21 Kasım 2026"), std::string::npos) << turkish.out;
}

TEST(Day, ChangesItsClockOnTheDayOfTheRule) {
    const auto zone = [](const char* date) {
        return Program().run({"--city", "London", "--date", date, "--json"}).json().at("zone");
    };
    EXPECT_EQ(zone("2026-03-28").at("offset_hours"), 0.0);
    EXPECT_EQ(zone("2026-03-28").at("next_change").at("date"), "2026-03-29");
    EXPECT_EQ(zone("2026-03-29").at("offset_hours"), 1.0);
    EXPECT_TRUE(zone("2026-03-29").at("summer_time").get<bool>());
    EXPECT_EQ(zone("2026-10-24").at("offset_hours"), 1.0);
    EXPECT_EQ(zone("2026-10-25").at("offset_hours"), 0.0);
}

TEST(Day, ShowsTheSummerTimeSign) {
    const Outcome summer = Program().run({"--city", "London", "--date", "2026-07-01"});
    EXPECT_NE(summer.lineWith("Time zone").find("(+) 01:00 ☀"), std::string::npos) << summer.out;
    EXPECT_NE(summer.lineWith("Time zone").find("clocks go back on 25 October 2026"), std::string::npos) << summer.out;
    EXPECT_NE(Program().run({"--city", "Ankara"}).lineWith("Time zone").find("no summer time"), std::string::npos);
}

TEST(Day, MarksAndExplainsTimesFromAFallback) {
    const Outcome tromso = Program().run({"--city", "Tromsø", "--date", "2026-06-21"});
    EXPECT_NE(tromso.lineWith("   Fajr").find("¹²"), std::string::npos) << tromso.out;
    EXPECT_NE(tromso.out.find("¹ The Sun does not both rise and set here"), std::string::npos) << tromso.out;
    EXPECT_NE(tromso.out.find("² The Sun does not sink 19°"), std::string::npos) << tromso.out;
    EXPECT_NE(tromso.lineWith("   Sun  ").find("--:-- / --:--"), std::string::npos) << tromso.out;
    EXPECT_EQ(tromso.lineWith("   Dhuhr").find("¹"), std::string::npos) << "noon does not depend on the latitude";
    EXPECT_EQ(Program().run({"--city", "Ankara"}).out.find("¹"), std::string::npos);
}

TEST(Day, SaysWhichTimesComeAfterMidnight) {
    const Outcome run = Program().run({"--city", "Oslo", "--date", "2026-06-21"});
    EXPECT_NE(run.lineWith("   Isha").find("after midnight"), std::string::npos) << run.out;
}

TEST(Day, WritesDashesForTimesThatDoNotExist) {
    const Outcome run = Program().run({"--city", "Tromsø", "--date", "2026-12-21"});
    EXPECT_NE(run.lineWith("Ishraq").find("--:--"), std::string::npos) << run.out;
}

TEST(Day, StatesMarginRoundingAndMagneticModel) {
    const Outcome run = Program().run({"--city", "Ankara"});
    EXPECT_NE(run.out.find("margin (temkin)"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("31 s"), std::string::npos) << run.out;
    EXPECT_NE(run.lineWith("Declination").find("IGRF-11 (2010)"), std::string::npos) << run.out;
}

TEST(Day, ShowsSecondsOnRequest) {
    const json day = Program().run({"--city", "Ankara", "--json"}).json();
    const double noon = day.at("prayers")[2].at("hours");
    const long seconds = std::lround(noon * 3600.0);
    char expected[64];
    std::snprintf(expected, sizeof expected, "%02ld:%02ld:%02ld", seconds / 3600, seconds / 60 % 60, seconds % 60);
    const Outcome run = Program().run({"--city", "Ankara", "--seconds"});
    EXPECT_NE(run.lineWith("Dhuhr").find(expected), std::string::npos) << run.out;
}

TEST(Day, WarnsWhenTheSystemKnowsAnotherClock) {
    // Turkey put its clocks forward in the summer of 2010; the rule of today knows nothing of that.
    const Outcome run = Program().run({"--city", "Ankara", "--date", "2010-01-15"});
    EXPECT_NE(run.out.find("Times may be an hour off: Europe/Istanbul: stored UTC+3, this system says UTC+2"),
              std::string::npos)
        << run.out;
    EXPECT_EQ(Program().run({"--city", "Ankara", "--date", "2026-01-15"}).out.find("an hour off"), std::string::npos);
}

TEST(Day, FitsATerminalInEveryLanguage) {
    for (const char* language : {"tr", "en", "fr", "de"}) {
        for (const char* city : {"Tromsø", "Auckland", "-89,0", "Ankara"}) {
            for (const char* date : {"2026-06-21", "2026-12-21"}) {
                const Outcome run = Program().run({"--city", city, "--lang", language, "--date", date});
                for (const std::string& line : run.lines()) EXPECT_LE(widthOf(line), 80) << line;
            }
        }
    }
}

}  // namespace
}  // namespace quode::test
