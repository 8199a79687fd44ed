// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The page of a day: its times against the reference values, and what it says about them.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "program.h"
#include "support/vectors.h"
#include "terminal/text_layout.h"

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
    EXPECT_NE(french.out.find("\n   Lune au coucher du Soleil  +"), std::string::npos) << french.out;
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
    EXPECT_NE(turkish.out.find("21 Kasım 2026 Cumartesi"), std::string::npos) << turkish.out;
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

TEST(Day, ExplainsATimeOnTheOtherSideOfAChangeOfTheClocks) {
    // In Helsinki dawn comes before the clocks go forward at 03:00 on 29 March 2026: a wall clock shows 02:44.
    const std::string note = "Fajr: the clocks change on this day; at this moment they show 02:44.";
    const auto day = [](const char* city, const char* date) {
        return Program().run({"today", "--city", city, "--date", date});
    };
    const Outcome change = day("Helsinki", "2026-03-29");
    EXPECT_NE(change.lineWith("   Fajr").find("03:44  ¹"), std::string::npos) << change.out;
    EXPECT_NE(change.out.find("¹ " + note), std::string::npos) << change.out;
    const Outcome month = Program().run({"month", "2026-03", "--city", "Helsinki"});
    EXPECT_NE(month.out.find("¹ " + note), std::string::npos) << month.out;
    const auto notes =
        Program().run({"today", "--city", "Helsinki", "--date", "2026-03-29", "--json"}).json().at("notes");
    EXPECT_NE(std::find(notes.begin(), notes.end(), note), notes.end()) << notes;
    for (const char* other : {"2026-03-28", "2026-03-30"})
        EXPECT_EQ(day("Helsinki", other).out.find("¹"), std::string::npos);
    EXPECT_EQ(day("Berlin", "2026-03-29").out.find("¹"), std::string::npos) << "there, dawn comes after the change";
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
    EXPECT_NE(run.out.find("\n! Europe/Istanbul: its stored clock is UTC+3, that of this system UTC+2, on 15\n"
                           "  January 2010. The times follow the stored one.\n"),
              std::string::npos)
        << run.out;
    EXPECT_EQ(Program().run({"--city", "Ankara", "--date", "2026-01-15"}).out.find("stored"), std::string::npos);
}

TEST(Day, WarnsOfAnotherClockInEachLanguage) {
    const std::vector<std::pair<const char*, const char*>> warnings{
        {"tr", "! Europe/Istanbul: kayıtlı saat UTC+3, bu sisteminki UTC+2 (15 Ocak 2010).\n  Vakitler"},
        {"fr",
         "! Europe/Istanbul\u00a0: l’heure enregistrée est UTC+3, celle de ce système UTC+2,\n  le 15 janvier 2010."},
        {"de", "! Europe/Istanbul: Gespeichert ist die Uhr UTC+3, dieses System hat UTC+2, am"},
    };
    for (const auto& [language, warning] : warnings) {
        const Outcome run = Program().run({"--city", "Ankara", "--date", "2010-01-15", "--lang", language});
        EXPECT_NE(run.out.find(warning), std::string::npos) << run.out;
        EXPECT_EQ(run.out.find("stored"), std::string::npos) << run.out;
        for (const std::string& line : run.lines()) EXPECT_LE(widthOf(line), 80) << line;
    }
}

TEST(Day, TellsTheSecondsOfAnOldClock) {
    const Outcome run = Program().run({"--city", "Istanbul", "--date", "1890-01-15"});
    EXPECT_NE(run.out.find("that of this system UTC+1:56:56"), std::string::npos) << run.out;
}

TEST(Day, WritesDatesAndNumbersAsEachLanguageDoes) {
    const auto page = [](const char* language, const char* date) {
        return Program().run({"--city", "Berlin", "--lang", language, "--date", date}).out;
    };
    EXPECT_NE(page("de", "2026-11-21").find("\nSamstag, 21. November 2026\n12. Dschumada ath-Thaniya 1448"),
              std::string::npos);
    EXPECT_NE(page("tr", "2026-11-21").find("\n21 Kasım 2026 Cumartesi\n12 Cemaziyelahir 1448"), std::string::npos);
    EXPECT_NE(page("fr", "2027-01-01").find("\nvendredi 1er janvier 2027\n"), std::string::npos);
    EXPECT_NE(page("fr", "2026-11-11").find("\nmercredi 11 novembre 2026\n"), std::string::npos);
    EXPECT_NE(page("en", "2027-01-01").find("\nFriday 1 January 2027\n"), std::string::npos);
    EXPECT_NE(page("de", "2026-11-21").find("Uhr vor am 28. März 2027"), std::string::npos);
    for (const char* language : {"tr", "fr", "de"}) {
        EXPECT_NE(page(language, "2026-11-21").find("52,5244° N  13,4105° E"), std::string::npos) << language;
        EXPECT_NE(page(language, "2026-11-21").find("+5,0°"), std::string::npos) << language;
    }
    EXPECT_NE(page("en", "2026-11-21").find("+5.0°"), std::string::npos);
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
