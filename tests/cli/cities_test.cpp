// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program.h"

namespace quode::test {
namespace {

using nlohmann::json;

TEST(City, IsTheLargestOfTheSystemsZoneWhenNoneIsChosen) {
    const Outcome run = Program().run({});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("Istanbul  ")) << run.out;
    EXPECT_NE(run.out.find("Europe/Istanbul"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("quode city home NAME"), std::string::npos) << run.out;
    EXPECT_EQ(Program().run({"--json"}).json().at("place").at("chosen_by"), "system_zone");
}

TEST(City, IsMeccaInAZoneWithoutCities) {
    Program program;
    const Outcome run = program.with("TZ", "Etc/UTC").run({"--json"});
    const json place = run.json().at("place");
    EXPECT_EQ(place.at("chosen_by"), "fallback");
    EXPECT_EQ(place.at("city").at("zone"), "Asia/Riyadh");
    EXPECT_NE(program.run({}).out.find("has no city"), std::string::npos);
}

TEST(City, IsTakenFromTheEnvironment) {
    Program program;
    const Outcome run = program.with("QUODE_CITY", "Ankara").run({});
    EXPECT_TRUE(run.out.starts_with("Ankara  ")) << run.out;
    EXPECT_EQ(run.out.find("--city"), std::string::npos) << "nothing to explain";
    EXPECT_EQ(program.run({"--json"}).json().at("place").at("chosen_by"), "environment");
    EXPECT_TRUE(program.run({"--city", "Izmir"}).out.starts_with("İzmir") ||
                program.run({"--city", "Izmir"}).out.starts_with("Izmir"));
}

TEST(City, IsTheSameByNameByIdAndByAFormerName) {
    const auto id = [](const char* request) {
        return Program().run({"city", "show", request, "--json"}).json().at("place").at("city").at("id");
    };
    EXPECT_EQ(id("745044"), 745044);
    EXPECT_EQ(id("istanbul"), 745044);
    EXPECT_EQ(id("İSTANBUL"), 745044);
    EXPECT_EQ(id("Bombay"), id("Mumbai"));
}

TEST(City, OfACountryIsChosenByTheTextAfterAComma) {
    const auto country = [](const char* request) {
        return Program().run({"city", "show", request, "--json"}).json().at("place").at("city").at("country_code");
    };
    EXPECT_EQ(country("London"), "GB");
    EXPECT_EQ(country("London, Canada"), "CA");
}

TEST(City, NamesOfSeveralWordsNeedNoQuotes) {
    const Outcome run = Program().run({"city", "show", "New", "York", "City", "--json"});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.json().at("place").at("city").at("zone"), "America/New_York");
}

TEST(Coordinates, TakeTheClockOfTheNearestCityAndSayWhose) {
    const json place = Program().run({"--city", "-33.87,151.21", "--json"}).json().at("place");
    EXPECT_EQ(place.at("clock_of").at("name"), "Sydney");
    EXPECT_LT(place.at("clock_of").at("distance_km").get<double>(), 5.0);
    EXPECT_EQ(place.at("city").at("zone"), "Australia/Sydney");
    EXPECT_EQ(place.at("city").at("latitude"), -33.87);
    EXPECT_TRUE(place.at("city").at("id").is_null());
    const Outcome text = Program().run({"city", "show", "-33.87,151.21"});
    EXPECT_NE(text.out.find("clock of Sydney"), std::string::npos) << text.out;
}

TEST(Coordinates, ReachThePolesAndTheDateLine) {
    for (const char* point : {"90,0", "-90,0", "0,180", "0,-180", "+52.5, 13.4"}) {
        EXPECT_EQ(Program().run({"--city", point}).code, 0) << point;
    }
}

TEST(CitySearch, RanksTheLargestExactNameFirst) {
    const json cities = Program().run({"city", "search", "london", "--json"}).json().at("cities");
    EXPECT_EQ(cities[0].at("city").at("country_code"), "GB");
    EXPECT_EQ(cities[0].at("match"), "exact");
}

TEST(CitySearch, ToleratesATypo) {
    const Outcome run = Program().run({"city", "search", "Istambul"});
    EXPECT_EQ(run.code, 0);
    EXPECT_NE(run.out.find("745044"), std::string::npos) << run.out;
}

TEST(CitySearch, KnowsFormerNamesOfGreatCities) {
    const std::vector<std::pair<const char*, const char*>> names{
        {"Konstantinopel", "Istanbul"},
        {"Constantinople", "Istanbul"},
        {"Byzantium", "Istanbul"},
        {"Saigon", "Ho Chi Minh City"},
        {"Leningrad", "Saint Petersburg"},
        {"Rangoon", "Yangon"},
        {"Königsberg", "Kaliningrad"},
        {"Trebizond", "Trabzon"},
        {"Saloniki", "Thessaloníki"},
        {"Alma-Ata", "Almaty"},
        {"Dacca", "Dhaka"},
        {"Leopoldville", "Kinshasa"},
    };
    for (const auto& [former, present] : names) {
        const json hit = Program().run({"city", "search", former, "--limit", "1", "--json"}).json()["cities"][0];
        EXPECT_EQ(hit["city"]["name"], present) << former;
        EXPECT_EQ(hit["match"], "exact") << former;
        EXPECT_TRUE(hit["other_name"].is_string()) << former;
    }
}

TEST(CitySearch, ShowsNoMoreThanItIsAskedFor) {
    EXPECT_EQ(Program().run({"city", "search", "San", "--limit", "3"}).lines().size(), 3u);
    EXPECT_EQ(Program().run({"city", "search", "San"}).lines().size(), 10u);
}

/// The city that is shown in a time zone.
std::string cityOf(const std::string& zone) {
    Program program;
    return program.with("TZ", zone).run({"--json"}).json()["place"]["city"]["name"].get<std::string>();
}

TEST(SystemZone, MayBeWrittenInEveryWayThatNamesOne) {
    for (const char* zone : {"Europe/Berlin", ":Europe/Berlin", "/usr/share/zoneinfo/Europe/Berlin",
                             ":/usr/share/zoneinfo/Europe/Berlin", "posix/Europe/Berlin"}) {
        EXPECT_EQ(cityOf(zone), "Berlin") << zone;
        EXPECT_EQ(Program().with("TZ", zone).run({"next"}).err, "") << zone;
    }
}

TEST(SystemZone, ThatNamesNoPlaceIsReported) {
    Program rule;
    const Outcome clock = rule.with("TZ", "CET-1CEST,M3.5.0,M10.5.0/3").run({"next"});
    EXPECT_EQ(
        clock.err,
        "quode: TZ is \"CET-1CEST,M3.5.0,M10.5.0/3\", which is a clock without a place. Set a zone such as "
        "TZ=Europe/Istanbul, or choose your city: quode city home NAME\n"
        "quode: Makkah is shown because the time zone of this system, CET-1CEST,M3.5.0,M10.5.0/3, has no city. To "
        "choose one: quode city home NAME.\n");
    for (const char* zone : {"nonsense", "Europe/Nowhere", "Europe/", "../../etc/passwd", ":/etc/passwd"}) {
        Program program;
        const Outcome run = program.with("TZ", zone).run({"next"});
        EXPECT_NE(run.err.find("which is not a time zone of this system"), std::string::npos) << zone << run.err;
        EXPECT_NE(program.run({}).out.find(zone), std::string::npos) << "what was meant stands below the day";
    }
}

TEST(SystemZone, ThatNamesNoPlaceDoesNotMatterWhereACityIsChosen) {
    Program program;
    program.with("TZ", "nonsense");
    EXPECT_EQ(program.run({"next", "--city", "Berlin"}).err, "");
    EXPECT_EQ(program.run({"city", "home", "Berlin"}).err,
              "quode: The time zone of this device has no name. Add your city: quode city add NAME.\n");
    const Outcome home = program.run({"next"});
    EXPECT_EQ(home.err, "");
    EXPECT_EQ(home.out, Program().run({"next", "--city", "Berlin"}).out);
}

TEST(DoctorZones, ListsTheZonesThatDisagree) {
    const json report = Program().run({"doctor", "zones", "--json"}).json();
    EXPECT_EQ(report.at("first"), "2026-11-21");
    EXPECT_GT(report.at("zones").get<int>(), 300);
    for (const json& zone : report.at("disagreements")) EXPECT_TRUE(zone.contains("unknown_to_system"));
    const Outcome text = Program().run({"doctor", "zones"});
    EXPECT_EQ(text.code, 0);
    EXPECT_NE(text.out.find("time zones differ from the system's zone data"), std::string::npos) << text.out;
}

}  // namespace
}  // namespace quode::test
