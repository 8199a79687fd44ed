// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode city list, add, remove, home, move: the user's own cities.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

constexpr int berlin = 2950159;

/// The ids of the cities that a command shows; the home city's with a star behind it.
std::string idsShown(const Outcome& shown) {
    std::string ids;
    const nlohmann::json list = shown.json();
    for (const auto& city : list.at("cities")) {
        if (!ids.empty()) ids += ' ';
        ids += std::to_string(city.at("id").get<int>());
        if (city.at("is_home").get<bool>()) ids += '*';
    }
    return ids;
}

std::string idsIn(const Program& program) {
    return idsShown(program.run({"city", "list", "--json"}));
}

void expectRefusal(const Program& program, const Words& words, int code, const std::string& message) {
    const std::string before = idsIn(program);
    const Outcome run = program.run(words);
    EXPECT_EQ(run.code, code) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_TRUE(run.err.starts_with("quode: ")) << run.err;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
    EXPECT_EQ(idsIn(program), before) << "something was changed";
}

TEST(UserCities, AreNoneBeforeTheFirstChange) {
    const Program program;
    const Outcome list = program.run({"city", "list"});
    EXPECT_EQ(list.code, 0);
    EXPECT_EQ(list.out, "You have no cities yet. To choose one: quode city home NAME.\n");
    EXPECT_EQ(idsIn(program), "");
    EXPECT_FALSE(fs::exists(program.dataFolder() / "user.sqlite")) << "looking makes nothing";
}

TEST(UserCities, BeginWithTheLargestCityOfTheSystemsZone) {
    const Program program;
    const Outcome added = program.run({"city", "add", "Berlin"});
    EXPECT_EQ(added.code, 0) << added.err;
    EXPECT_EQ(added.err, "");
    EXPECT_EQ(added.out,
              "1  Istanbul  Istanbul, Turkey          Europe/Istanbul   745044  home\n"
              "2  Berlin    State of Berlin, Germany  Europe/Berlin    2950159\n\n"
              "Istanbul is the largest city in the time zone of this system, Europe/Istanbul.\n"
              "To choose another one: quode city home NAME.\n");
    EXPECT_EQ(program.run({"city", "list"}).out, added.out);
    EXPECT_EQ(idsIn(program), "745044* 2950159");
    const Outcome chosen = program.run({"city", "home", "Istanbul"});
    EXPECT_EQ(chosen.out.find("largest city"), std::string::npos) << chosen.out;
}

TEST(UserCities, BeginInAFolderThatIsNamed) {
    Program program;
    const fs::path folder = program.folder() / "a" / "b";
    program.with("QUODE_DATA_DIR", folder.string());
    EXPECT_EQ(idsShown(program.run({"city", "add", "Berlin", "--json"})), "745044* 2950159");
    EXPECT_TRUE(fs::exists(folder / "user.sqlite"));
    EXPECT_FALSE(fs::exists(program.dataFolder()));
}

TEST(UserCities, HoldTheWholeRecordInJson) {
    const Program program;
    const auto city = program.run({"city", "add", "Berlin", "--json"}).json()["cities"][1];
    EXPECT_EQ(city["id"], berlin);
    EXPECT_EQ(city["is_home"], false);
    EXPECT_EQ(city["city"]["name"], "Berlin");
    EXPECT_EQ(city["city"]["zone"], "Europe/Berlin");
    EXPECT_EQ(city["city"]["country_code"], "DE");
}

TEST(UserCities, AreAddedOnce) {
    const Program program;
    program.run({"city", "add", "Berlin"});
    const Outcome again = program.run({"city", "add", std::to_string(berlin), "--json"});
    EXPECT_EQ(again.code, 0);
    EXPECT_EQ(again.err, "quode: Berlin is already in your list.\n");
    EXPECT_EQ(idsShown(again), "745044* 2950159");
}

TEST(UserCities, AreMovedByPositionNameAndId) {
    const Program program;
    program.run({"city", "add", "Berlin"});
    program.run({"city", "add", "Ankara"});
    EXPECT_EQ(idsShown(program.run({"city", "move", "ankara", "1", "--json"})), "323786 745044* 2950159");
    EXPECT_EQ(idsShown(program.run({"city", "move", "1", "3", "--json"})), "745044* 2950159 323786");
    EXPECT_EQ(idsShown(program.run({"city", "move", "2950159", "1", "--json"})), "2950159 745044* 323786");
    EXPECT_EQ(idsShown(program.run({"city", "move", "2", "2", "--json"})), "2950159 745044* 323786");
    expectRefusal(program, {"city", "move", "1", "4"}, 2, "Position 4 is out of range (1–3).");
    expectRefusal(program, {"city", "move", "1", "0"}, 2, "quode city move Ankara 1");
    expectRefusal(program, {"city", "move", "Berlin"}, 2, "quode city move Ankara 1");
    expectRefusal(program, {"city", "move", "Mecca", "1"}, 1, "\"Mecca\" is not in your list");
}

TEST(UserCities, AreRemovedAndTheHomePassesToTheFirst) {
    const Program program;
    program.run({"city", "add", "Berlin"});
    program.run({"city", "add", "Ankara"});
    EXPECT_EQ(idsShown(program.run({"city", "remove", "Istanbul", "--json"})), "2950159* 323786");
    EXPECT_EQ(idsShown(program.run({"city", "remove", "2", "--json"})), "2950159*");
    const Outcome none = program.run({"city", "remove", "berlin"});
    EXPECT_EQ(none.code, 0);
    EXPECT_NE(none.out.find("no cities"), std::string::npos) << none.out;
    expectRefusal(program, {"city", "remove", "1"}, 1, "\"1\" is not in your list. Show your cities: quode city");
    EXPECT_EQ(idsShown(program.run({"city", "add", "Ankara", "--json"})), "323786*") << "the first one becomes home";
}

TEST(UserCities, HomeIsTheCityOfEveryCommand) {
    const Program program;
    EXPECT_EQ(idsShown(program.run({"city", "home", "Mecca", "--json"})), "745044 104515*");
    const auto today = program.run({"--json"}).json();
    EXPECT_EQ(today["place"]["city"]["id"], 104515);
    EXPECT_EQ(today["place"]["chosen_by"], "home");
    EXPECT_EQ(program.run({"next"}).out, Program().run({"next", "--city", "Mecca"}).out);
    EXPECT_EQ(idsShown(program.run({"city", "home", "1", "--json"})), "745044* 104515");
}

TEST(UserCities, AreRefusedWhenUnknownOrEmpty) {
    const Program program;
    program.run({"city", "add", "Berlin"});
    expectRefusal(program, {"city", "add", "Istambul"}, 1, "Did you mean one of these? Use the name or the id:");
    expectRefusal(program, {"city", "add", "999999999"}, 1, "No city has the id 999999999");
    expectRefusal(program, {"city", "home", "Xqzvwk"}, 1, "No city is called \"Xqzvwk\"");
    expectRefusal(program, {"city", "add", ""}, 2, "The name of the city is empty.");
    expectRefusal(program, {"city", "add"}, 2, "quode city add needs CITY.");
}

// --- places by coordinates

TEST(UserPlaces, TakeTheZoneOfTheNearestCityAndBehaveLikeAny) {
    const Program program;
    const Outcome added = program.run({"city", "add", "36.8,28.3", "--name", "Köy"});
    EXPECT_EQ(added.code, 0) << added.err;
    EXPECT_EQ(added.lineWith("Köy"), "2  Köy       Muğla, Turkey     Europe/Istanbul      -1");
    const auto place = program.run({"--city", "köy", "--json"}).json()["place"]["city"];
    EXPECT_EQ(place["id"], -1);
    EXPECT_NEAR(place["latitude"].get<double>(), 36.8, 1e-6);
    EXPECT_NEAR(place["longitude"].get<double>(), 28.3, 1e-6);
    EXPECT_EQ(place["zone"], "Europe/Istanbul");
    EXPECT_EQ(program.run({"next", "--city", "-1"}).out, program.run({"next", "--city", "36.8,28.3"}).out);
    EXPECT_EQ(idsShown(program.run({"city", "home", "-1", "--json"})), "745044 -1*");
    EXPECT_EQ(idsShown(program.run({"city", "remove", "Köy", "--json"})), "745044*");
    EXPECT_EQ(program.run({"--city", "-1"}).code, 1) << "a place that is removed is forgotten";
}

TEST(UserPlaces, MayHaveAZoneOfTheirOwn) {
    const Program program;
    const Outcome added =
        program.run({"city", "add", "36.8,28.3", "--name", "Athener Boot", "--zone", "Europe/Athens"});
    EXPECT_NE(added.lineWith("Athener Boot").find("Europe/Athens"), std::string::npos) << added.out;
}

TEST(UserPlaces, AreRefusedWithoutANameOrOutsideTheEarth) {
    const Program program;
    program.run({"city", "add", "Berlin"});
    expectRefusal(program, {"city", "add", "36.8,28.3"}, 2, "needs a name: --name NAME");
    expectRefusal(program, {"city", "add", "36.8,28.3", "--name", " "}, 2, "A place needs a name.");
    expectRefusal(program, {"city", "add", "36.8,28.3", "--name", "Boat\x1B[31m"}, 2, "control characters");
    expectRefusal(program, {"city", "add", "95,0", "--name", "X"}, 2, "Latitude 95 is out of range");
    program.run({"city", "add", "36.8,28.3", "--name", "Hut"});
    expectRefusal(program, {"city", "add", "1,1", "--name", "X", "--zone", "Nowhere/X"}, 2, "time zone \"Nowhere/X\"");
    expectRefusal(program, {"city", "add", "Berlin", "--name", "X"}, 2, "--name and --zone are for places given by");
}

TEST(UserPlaces, OfOneNameAreDistinguishedByTheirIds) {
    const Program program;
    program.run({"city", "add", "36.8,28.3", "--name", "Köy"});
    program.run({"city", "add", "37.8,29.3", "--name", "Köy"});
    expectRefusal(program, {"city", "remove", "köy"}, 2, "Several of your cities are called \"köy\". Use the id:\n");
    EXPECT_EQ(idsShown(program.run({"city", "remove", "-1", "--json"})), "745044* -2");
}

// --- a page

TEST(UserCities, FitInEightyColumnsWhateverTheirNames) {
    const Program program;
    program.run({"city", "add", "10.5,-61.3", "--name", "Ein Ort mit einem wirklich recht langen Namen am Meer"});
    program.run({"city", "add", "Berlin"});
    for (const std::string& line : program.run({"city", "list"}).lines()) EXPECT_LE(widthOf(line), 80) << line;
}

TEST(UserCities, AreReportedInEachLanguage) {
    const Program program;
    program.run({"city", "add", "Ankara"});
    EXPECT_NE(program.run({"city", "list", "--lang", "tr"}).out.find("ana şehir"), std::string::npos);
    EXPECT_NE(program.run({"city", "list", "--lang", "fr"}).out.find("domicile"), std::string::npos);
    EXPECT_NE(program.run({"city", "list", "--lang", "de"}).out.find("Heimatort"), std::string::npos);
    EXPECT_EQ(program.run({"city", "list", "--lang", "tr"}).lineWith("Ankara").find("Ankara, Türkiye"), 13U);
}

TEST(UserCities, OfAZoneWithoutCitiesBeginEmptyAndSaySo) {
    Program program;
    program.with("TZ", "UTC");
    const Outcome added = program.run({"city", "add", "Berlin", "--json"});
    EXPECT_EQ(added.code, 0);
    EXPECT_EQ(idsShown(added), "2950159*");
    EXPECT_NE(added.err.find("There is no city in the time zone of this device, UTC."), std::string::npos) << added.err;
}

}  // namespace
}  // namespace quode::test
