// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The method of a city's times, as a user chooses it.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>

#include "program.h"
#include "support/fixtures.h"

namespace quode::test {
namespace {

using nlohmann::json;

std::string timeOf(const json& page, const std::string& key) {
    for (const json& prayer : page.at("prayers")) {
        if (prayer.at("key") == key) return prayer.at("time");
    }
    return "";
}

json day(const Program& program, const std::vector<std::string>& more) {
    std::vector<std::string> words{"today", "--json"};
    words.insert(words.end(), more.begin(), more.end());
    return program.run(words).json();
}

/// The line of a CSV that begins with a date.
std::string csvLine(const Program& program, const std::vector<std::string>& arguments, const std::string& date) {
    for (const std::string& line : program.run(arguments).lines()) {
        if (line.starts_with(date)) return line;
    }
    return "";
}

// Rows of the authorities' own timetables.
TEST(Method, ReproducesPublishedTimes) {
    const Program program;
    EXPECT_NE(
        csvLine(program, {"year", "2024", "--city", "39.90861,41.27694", "--method", "diyanet", "--format", "csv"},
                "2024-03-31")
            .find(",04:28,05:53,12:24,15:57,18:45,20:05,"),
        std::string::npos);
    EXPECT_NE(
        csvLine(program, {"month", "2020-08", "--city", "27.8743,-0.2939", "--method", "algeria", "--format", "csv"},
                "2020-08-29")
            .find(",05:18,06:39,13:02,16:35,19:28,20:41,"),
        std::string::npos);
}

TEST(Method, OfASingleCallChangesNothing) {
    const Program program;
    const json before = day(program, {"--city", "Ankara"});
    EXPECT_EQ(before.at("method").at("key"), "quode");
    EXPECT_EQ(day(program, {"--city", "Ankara", "--method", "diyanet"}).at("method").at("key"), "diyanet");
    EXPECT_EQ(day(program, {"--city", "Ankara"}), before);
}

TEST(Method, IsShownWithTheMeasuredAgreementOfTheManual) {
    std::ifstream page(sourceFile("docs/conventions.md"));
    const Program program;
    std::string key, line;
    int count = 0;
    while (std::getline(page, line)) {
        if (line.starts_with("### ")) key = line.substr(4, line.find(':') - 4);
        if (!line.starts_with("Agreement: ")) continue;
        std::string shown = program.run({"method", "show", key}).out;
        std::ranges::replace(shown, '\n', ' ');
        EXPECT_NE(shown.find(line), std::string::npos) << shown;
        ++count;
    }
    EXPECT_EQ(count, static_cast<int>(program.run({"method", "list", "--json"}).json().at("methods").size()));
}

TEST(Method, IsShownInTheLanguageOfTheUser) {
    const Outcome shown = Program().run({"--lang", "tr", "method", "show", "diyanet"});
    for (const char* english : {"From 45 degrees", "the authority's own timetable", "published rows"}) {
        EXPECT_EQ(shown.out.find(english), std::string::npos) << shown.out;
    }
}

TEST(Method, IsKeptForItsCityOnly) {
    const Program program;
    const json plain = day(program, {"--city", "Ankara"});
    ASSERT_EQ(program.run({"method", "set", "diyanet", "--city", "Ankara", "--adjust", "fajr=+2,isha=-1"}).code, 0);
    const json chosen = day(program, {"--city", "Ankara"});
    EXPECT_EQ(chosen.at("method").at("options"), "diyanet adjust=2,0,0,0,0,-1");
    EXPECT_EQ(chosen.at("method").at("times").at("fajr").at("adjusted_minutes"), 2);
    EXPECT_EQ(chosen.at("method").at("times").at("ishraq").at("source"), "own_rule");
    EXPECT_EQ(day(program, {"--city", "Istanbul"}).at("method").at("key"), "quode");
    EXPECT_NE(timeOf(chosen, "fajr"), timeOf(plain, "fajr"));
    ASSERT_EQ(program.run({"method", "set", "quode", "--city", "Ankara"}).code, 0);
    EXPECT_EQ(day(program, {"--city", "Ankara"}), plain);
}

TEST(Method, OfTheHomeCityIsThatOfTheComingPrayerAndTheAlarms) {
    const Program program;
    ASSERT_EQ(program.run({"city", "home", "Ankara"}).code, 0);
    ASSERT_EQ(program.run({"method", "set", "diyanet"}).code, 0);
    const json page = day(program, {});
    const json next = program.run({"next", "--json"}).json();
    EXPECT_EQ(next.at("next").at("time"), timeOf(page, next.at("next").at("key")));
    program.run({"alarm", "set", "sunrise", "--offset", "0"});
    program.run({"alarm", "on", "sunrise"});  // its code tells of the service that does not run here
    EXPECT_NE(program.run({"alarm", "upcoming"}).out.find(timeOf(page, "sunrise")), std::string::npos);
}

TEST(Method, MarksATimeWithTheUsersOwnMinutesWhereverItIsShown) {
    const Program program;
    const std::string mark = "adjusted by you";
    ASSERT_EQ(program.run({"city", "home", "Istanbul"}).code, 0);
    ASSERT_EQ(program.run({"method", "set", "quode", "--adjust", "sunrise=+3,isha=-2"}).code, 0);
    program.run({"alarm", "on", "isha", "asr"});
    EXPECT_EQ(program.run({"next"}).out, "Sunrise 07:55 (" + mark + "), in 55 min\n");
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"alarm", "list"}, {"alarm", "upcoming"}, {"iqama"}}) {
        const Outcome shown = program.run(words);
        EXPECT_NE(shown.lineWith("Isha").find(mark), std::string::npos) << shown.out;
        EXPECT_EQ(shown.lineWith("Asr").find(mark), std::string::npos) << shown.out;
    }
    EXPECT_NE(program.run({"alarm", "list"}).lineWith("Sunrise").find(mark), std::string::npos);
    const std::string toolTip = program.run({"next", "--format", "waybar"}).json().at("tooltip");
    EXPECT_NE(toolTip.find("Isha 19:21 (" + mark + ")"), std::string::npos) << toolTip;
    EXPECT_EQ(program.run({"next", "--format", "{name} {time}"}).out, "Sunrise 07:55\n");
}

TEST(Method, IsSuggestedAndNotSwitched) {
    const Program program;
    const Outcome suggestion = program.run({"method", "suggest", "--city", "Singapore", "--json"});
    EXPECT_EQ(suggestion.json().at("suggestion"), "muis");
    EXPECT_EQ(suggestion.json().at("chosen"), "quode");
    EXPECT_EQ(day(program, {"--city", "Singapore"}).at("method").at("key"), "quode");
}

TEST(Method, OfAnotherCountryIsNotCalledThatOfAnAuthority) {
    const Program program;
    const Outcome libya = program.run({"method", "suggest", "--city", "Tripoli, LY"});
    EXPECT_NE(libya.out.find("No authority of Libya is in the list"), std::string::npos) << libya.out << libya.err;
    EXPECT_EQ(libya.out.find("Usual"), std::string::npos) << libya.out;
    EXPECT_NE(libya.out.find("quode method set egypt"), std::string::npos) << libya.out;
    const json answer = program.run({"method", "suggest", "--city", "Tripoli, LY", "--json"}).json();
    EXPECT_EQ(answer.at("suggestion"), "egypt");
    EXPECT_EQ(answer.at("of_country"), false);
    EXPECT_EQ(program.run({"method", "suggest", "--city", "Cairo", "--json"}).json().at("of_country"), true);
    ASSERT_EQ(program.run({"city", "home", "Tripoli, LY"}).code, 0);
    EXPECT_NE(program.run({"today"}).out.find("No authority of Libya"), std::string::npos);
}

TEST(Method, IsExplained) {
    const Program program;
    const Outcome diyanet = program.run({"method", "show", "diyanet"});
    EXPECT_NE(diyanet.out.find("100 published rows"), std::string::npos) << diyanet.out;
    EXPECT_NE(program.run({"method", "show", "mwl"}).out.find("not checked against published"), std::string::npos);
    EXPECT_EQ(program.run({"method", "list", "--json"}).json().at("methods").size(), 27U);
    EXPECT_NE(program.run({"method", "show", "jakim"}).out.find("WLY01"), std::string::npos);
}

TEST(Method, OfTehranCountsMidnightFromSunset) {
    const json tehran = Program().run({"month", "2026-03", "--city", "Tehran", "--method", "tehran", "--json"}).json();
    const json mwl = Program().run({"month", "2026-03", "--city", "Tehran", "--method", "mwl", "--json"}).json();
    const auto hours = [](const json& day, const char* part, const char* key) {
        return day.at(part).at(key).at("hours").get<double>();
    };
    for (std::size_t i = 0; i < tehran.at("days").size(); ++i) {
        const json& day = tehran.at("days").at(i);
        const double sunset = hours(mwl.at("days").at(i), "prayers", "maghrib"), fajr = hours(day, "prayers", "fajr");
        const double night = fajr + 24.0 - sunset;
        EXPECT_NEAR(hours(day, "night", "midnight"), sunset + night / 2.0, 0.01);
        EXPECT_NEAR(hours(day, "night", "first_third"), sunset + night / 3.0, 0.01);
        EXPECT_NEAR(hours(day, "night", "last_third"), sunset + night * 2.0 / 3.0, 0.01);
    }
}

TEST(Method, MarksATimeBeforeOneThatItFollows) {
    const Program program;
    const std::vector<std::string> rovaniemi{"today",      "--city",   "66.5,25.7", "--date",
                                             "2026-12-21", "--method", "morocco"};
    const Outcome page = program.run(rovaniemi);
    EXPECT_NE(page.out.find("before the time that it follows"), std::string::npos) << page.out;
    const Outcome csv =
        program.run({"month", "2026-12", "--city", "66.5,25.7", "--method", "morocco", "--format", "csv"});
    EXPECT_NE(csv.lines().at(21).find("asr_out_of_order"), std::string::npos) << csv.lines().at(21);
    EXPECT_EQ(program.run({"month", "2026-06", "--city", "Ankara", "--method", "morocco", "--format", "csv"})
                  .out.find("out_of_order"),
              std::string::npos);
}

TEST(Method, NotesATimeInTheEveningBefore) {
    // The clock is an hour behind the Sun's, and dawn begins at its midnight.
    const std::vector<std::string> june{"month", "2026-06", "--city", "48.36,134.29", "--method", "mwl"};
    std::vector<std::string> csv = june;
    csv.insert(csv.end(), {"--format", "csv"});
    const std::string line = Program().run(csv).lines().at(20);
    EXPECT_NE(line.find(",23:29,"), std::string::npos) << line;
    EXPECT_NE(line.find("fajr_before_midnight"), std::string::npos) << line;
    std::vector<std::string> asJson = june;
    asJson.emplace_back("--json");
    const json notes = Program().run(asJson).json().at("days").at(19).at("notes");
    EXPECT_NE(std::find(notes.begin(), notes.end(), json("fajr_before_midnight")), notes.end());
}

TEST(Method, OfMalaysiaIsNotCertainOfAZoneAbroad) {
    const auto isCertain = [](const char* city) {
        const json page = Program().run({"today", "--city", city, "--method", "jakim", "--json"}).json();
        return page.at("method").at("point").at("certain").get<bool>();
    };
    for (const char* abroad : {"Singapore", "1.29,103.85", "Bandar Seri Begawan", "Hat Yai", "Pontianak"}) {
        EXPECT_FALSE(isCertain(abroad)) << abroad;
    }
    for (const char* home : {"George Town", "5.414,100.329", "Kota Bharu"}) EXPECT_TRUE(isCertain(home)) << home;
}

TEST(Method, IsComparedSideBySide) {
    const json compared = Program().run({"method", "compare", "mwl,isna", "--city", "London", "--json"}).json();
    const json& methods = compared.at("days").at(0).at("methods");
    EXPECT_EQ(methods.size(), 2U);
    EXPECT_LT(methods.at("mwl").at("fajr").at("hours"), methods.at("isna").at("fajr").at("hours"));
}

TEST(Method, IsRefusedWithAMessage) {
    const Program program;
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"method", "set", "nobody", "--city", "Ankara"},
                                               {"method", "set", "mwl", "--city", "Ankara", "--fajr-angle", "90"},
                                               {"method", "set", "mwl", "--city", "Ankara", "--adjust", "noon=3"},
                                               {"method", "set", "quode", "--city", "Ankara", "--isha-angle", "15"},
                                               {"method", "set", "mwl", "--city", "41,29"},
                                               {"today", "--method", "nobody"}}) {
        const Outcome run = program.run(words);
        EXPECT_NE(run.code, 0) << words.back();
        EXPECT_GT(run.err.size(), 30U) << words.back();
    }
}

constexpr const char* table =
    "Tarih;İmsak;Güneş;Öğle;İkindi;Akşam;Yatsı\n"
    "21.11.2026;06:21;07:52;12:55;15:26;17:48;19:13\n"
    "22.11.2026;06:22;07:53;12:55;15:26;17:48;19:13\n";

std::string written(const Program& program, const std::string& content) {
    const std::string path = (program.folder() / "mosque.csv").string();
    std::ofstream(path) << content;
    return path;
}

TEST(ImportedTable, WinsOnItsDates) {
    const Program program;
    const std::string file = written(program, table);
    const Outcome preview = program.run({"method", "import", file, "--city", "Istanbul", "--preview"});
    EXPECT_EQ(preview.code, 0) << preview.err;
    EXPECT_NE(preview.out.find("nothing was stored"), std::string::npos);
    EXPECT_EQ(day(program, {"--city", "Istanbul"}).at("method").at("table"), nullptr);

    const Outcome import = program.run({"method", "import", file, "--city", "Istanbul"});
    ASSERT_EQ(import.code, 0) << import.err;
    const json inside = day(program, {"--city", "Istanbul", "--date", "2026-11-21"});
    EXPECT_EQ(timeOf(inside, "fajr"), "06:21");
    EXPECT_EQ(timeOf(inside, "isha"), "19:13");
    EXPECT_EQ(inside.at("method").at("times").at("asr").at("source"), "table");
    EXPECT_EQ(day(program, {"--city", "Istanbul", "--date", "2026-11-23"}).at("method").at("from_table"), false);
    ASSERT_EQ(program.run({"method", "remove-table", "--city", "Istanbul"}).code, 0);
    EXPECT_NE(timeOf(day(program, {"--city", "Istanbul", "--date", "2026-11-21"}), "fajr"), "06:21");
}

TEST(ImportedTable, IsRefusedWholeForADamagedLine) {
    const Program program;
    const std::string file = written(program, std::string(table) + "23.11.2026;06:23;;12:55;15:25;17:47;19:12\n");
    const Outcome import = program.run({"method", "import", file, "--city", "Istanbul"});
    EXPECT_NE(import.code, 0);
    EXPECT_NE(import.err.find("Line 4"), std::string::npos) << import.err;
    EXPECT_EQ(day(program, {"--city", "Istanbul"}).at("method").at("table"), nullptr);
    EXPECT_EQ(program.run({"method", "import", file, "--city", "Istanbul", "--skip-damaged"}).code, 0);
    EXPECT_EQ(timeOf(day(program, {"--city", "Istanbul", "--date", "2026-11-22"}), "fajr"), "06:22");
}

TEST(ImportedTable, IsNoDeviceAndNoPipe) {
    const Program program;
    const Outcome run = program.run({"method", "import", "/dev/zero", "--city", "London"});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("/dev/zero is not a regular file"), std::string::npos) << run.err;
    EXPECT_NE(
        program.run({"method", "import", "nowhere.csv", "--city", "London"}).err.find("There is no file nowhere.csv"),
        std::string::npos);
}

TEST(CrescentOutlook, NamesBothCriteria) {
    const json outlook =
        Program().run({"moon", "--crescent", "--city", "Mecca", "--date", "2026-02-10", "--json"}).json();
    EXPECT_EQ(outlook.at("kind"), "outlook");
    const json& evenings = outlook.at("crescents").at(0).at("evenings");
    // New moon on 17 February 2026 at 12:01 UT: nothing that evening, plain to see two evenings later.
    EXPECT_EQ(evenings.at(0).at("date"), "2026-02-17");
    EXPECT_EQ(evenings.at(0).at("yallop").at("zone"), "F");
    EXPECT_EQ(evenings.at(2).at("yallop").at("zone"), "A");
    EXPECT_EQ(evenings.at(2).at("odeh").at("zone"), "A");
}

TEST(Hijri, ShowsOtherCalendarsWhereTheyDiffer) {
    const Outcome run = Program().run({"hijri", "2026-02-18"});
    EXPECT_NE(run.out.find("Umm al-Qura"), std::string::npos) << run.out;  // 1 Ramadan, the table's 30 Shaban
}

TEST(Qibla, ShowsTheCurrentModelBesideTheOneInUse) {
    const json qibla = Program().run({"qibla", "--city", "Istanbul", "--json"}).json();
    EXPECT_EQ(qibla.at("magnetic_declination").at("model"), "IGRF-11");
    EXPECT_EQ(qibla.at("current_declination").at("model"), "WMM2025");
    EXPECT_NEAR(qibla.at("current_declination").at("age_years").get<double>(), 1.89, 0.01);
    EXPECT_TRUE(qibla.at("current_declination").at("valid"));
    const auto isValidOn = [](const char* date) {
        const json of = Program().run({"qibla", "--city", "Istanbul", "--date", date, "--json"}).json();
        return of.at("current_declination").at("valid").get<bool>();
    };
    EXPECT_FALSE(isValidOn("2024-12-31"));
    EXPECT_TRUE(isValidOn("2025-01-01"));
    EXPECT_TRUE(isValidOn("2029-12-31"));
    EXPECT_FALSE(isValidOn("2030-01-01"));
}

}  // namespace
}  // namespace quode::test
