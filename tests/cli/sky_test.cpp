// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Moon, qibla and calendars on the command line.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "program.h"

namespace quode::test {
namespace {

using nlohmann::json;

int minuteOf(const std::string& instant) {
    return std::stoi(instant.substr(11, 2)) * 60 + std::stoi(instant.substr(14, 2));
}

TEST(MoonPhases, AreThePublishedOnes) {
    // Universal times as astronomical almanacs print them for 2024.
    struct Published {
        const char* key;
        const char* moment;
    };
    constexpr Published published[] = {
        {"last_quarter", "2024-01-04T03:30"},  {"new_moon", "2024-01-11T11:57"},
        {"first_quarter", "2024-01-18T03:53"}, {"full_moon", "2024-01-25T17:54"},
        {"last_quarter", "2024-02-02T23:18"},  {"new_moon", "2024-02-09T22:59"},
        {"first_quarter", "2024-02-16T15:01"}, {"full_moon", "2024-02-24T12:30"},
        {"last_quarter", "2024-03-03T15:23"},  {"new_moon", "2024-03-10T09:00"},
        {"first_quarter", "2024-03-17T04:11"}, {"full_moon", "2024-03-25T07:00"},
        {"last_quarter", "2024-04-02T03:15"},  {"new_moon", "2024-04-08T18:21"},
    };
    const json phases = Program().run({"moon", "--phases", "2024", "--city", "London", "--json"}).json().at("phases");
    EXPECT_GE(phases.size(), 49u);
    EXPECT_LE(phases.size(), 50u);
    for (std::size_t i = 0; i < std::size(published); ++i) {
        const std::string instant = phases[i].at("instant"), expected = published[i].moment;
        EXPECT_EQ(phases[i].at("key"), published[i].key) << expected;
        EXPECT_EQ(instant.substr(0, 10), expected.substr(0, 10));
        EXPECT_NEAR(minuteOf(instant), minuteOf(expected), 2) << expected;
    }
}

TEST(MoonPhases, AreReportedInTheTimeOfTheCity) {
    const json phases = Program().run({"moon", "--phases", "2026", "--city", "Auckland", "--json"}).json().at("phases");
    for (const json& phase : phases) EXPECT_EQ(phase.at("date").get<std::string>().substr(0, 4), "2026");
    // The full Moon of 3 January 2026, 10:03 universal time, with the 13 hours of a summer there.
    EXPECT_EQ(phases[0].at("key"), "full_moon");
    EXPECT_EQ(phases[0].at("date"), "2026-01-03");
    EXPECT_EQ(phases[0].at("time"), "23:03");
}

TEST(Moon, IsPrintedInWordsWhereNothingCanBeDrawn) {
    const Outcome run = Program().run({"moon", "--city", "Ankara"});
    EXPECT_NE(run.out.find("lit on the right"), std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("█"), std::string::npos) << run.out;
    EXPECT_NE(Program().run({"moon", "--city", "Sydney"}).out.find("lit on the left"), std::string::npos);
}

TEST(Moon, WritesItsNumbersAsEachLanguageDoes) {
    const auto page = [](const char* language) {
        return Program().run({"moon", "--city", "Berlin", "--date", "2026-11-21", "--lang", language}).out;
    };
    EXPECT_NE(page("en").find("85 %, waxing"), std::string::npos) << page("en");
    EXPECT_NE(page("tr").find("%85, büyüyor"), std::string::npos) << page("tr");
    EXPECT_NE(page("fr").find("85\u00a0%, croissante"), std::string::npos) << page("fr");
    EXPECT_NE(page("de").find(",4°\n"), std::string::npos) << page("de");
    EXPECT_NE(page("de").find(" Tage\n"), std::string::npos);
    EXPECT_EQ(page("de").find("3.4°"), std::string::npos) << page("de");
}

TEST(Moon, CarriesTheNameOfAPhaseOnItsDay) {
    const auto phase = [](const char* date) {
        return Program().run({"moon", "--city", "London", "--date", date, "--json"}).json().at("phase").at("key");
    };
    EXPECT_EQ(phase("2024-01-10"), "waning_crescent");
    EXPECT_EQ(phase("2024-01-11"), "new_moon");
    EXPECT_EQ(phase("2024-01-12"), "waxing_crescent");
    EXPECT_EQ(phase("2024-01-18"), "first_quarter");
    EXPECT_EQ(phase("2024-01-20"), "waxing_gibbous");
    EXPECT_EQ(phase("2024-01-25"), "full_moon");
    EXPECT_EQ(phase("2024-01-28"), "waning_gibbous");
    EXPECT_EQ(phase("2024-02-02"), "last_quarter");
}

TEST(Moon, CountsItsAgeFromOneNewMoonToTheNext) {
    const json moon = Program().run({"moon", "--city", "London", "--date", "2024-01-12", "--json"}).json();
    // New Moon on 11 January 11:57 and 9 February 22:59 universal time.
    EXPECT_NEAR(moon.at("days_since_new_moon").get<double>(), 1.0 + 3.0 / 1440.0, 0.01);
    EXPECT_NEAR(moon.at("days_to_new_moon").get<double>(), 28.0 + 659.0 / 1440.0, 0.01);
    EXPECT_TRUE(moon.at("waxing").get<bool>());
}

TEST(Sky, HasTheFiveValuesOfTheDayPage) {
    const json sky = Program().run({"sky", "--city", "Ankara", "--json"}).json().at("sky");
    EXPECT_EQ(sky, Program().run({"--city", "Ankara", "--json"}).json().at("sky"));
    for (const char* key : {"sunrise", "sunset", "moonrise", "moonset", "moon_altitude_at_sunset"}) {
        EXPECT_TRUE(sky.contains(key)) << key;
    }
}

TEST(Sky, HasNoSunInThePolarNight) {
    const json sky = Program().run({"sky", "--city", "Tromsø", "--date", "2026-12-21", "--json"}).json().at("sky");
    EXPECT_TRUE(sky.at("sunrise").is_null());
    EXPECT_TRUE(sky.at("moon_altitude_at_sunset").is_null());
    const Outcome text = Program().run({"sky", "--city", "Tromsø", "--date", "2026-12-21"});
    EXPECT_NE(text.lineWith("Moon at sunset").find("--:--"), std::string::npos);
}

TEST(Qibla, IsTheDirectionOfTheKaaba) {
    // The reference angles count the other way round: 208.33 and -58.49 degrees.
    const auto bearing = [](const char* point) {
        return Program().run({"qibla", "--city", point, "--json"}).json().at("qibla").at("bearing").get<double>();
    };
    EXPECT_NEAR(bearing("41.0,29.0"), 360.0 - 208.33, 0.005);
    EXPECT_NEAR(bearing("40.7,-74.0"), 58.49, 0.005);
    EXPECT_NEAR(bearing("28.6,77.2"), 266.63, 0.005);
}

TEST(Qibla, OnTheMeridianOfTheKaabaSaysWhereItLies) {
    const std::string north = "40,39.81999969482422", south = "-10,39.81999969482422";
    const Outcome page = Program().run({"qibla", "--city", north});
    EXPECT_NE(page.out.find("! This place lies on the meridian of the Kaaba."), std::string::npos) << page.out;
    EXPECT_NE(page.out.find("lies due south."), std::string::npos) << page.out;
    EXPECT_NE(Program().run({"qibla", "--city", south}).out.find("lies due north."), std::string::npos);
    EXPECT_EQ(Program().run({"qibla", "--city", north, "--json"}).json()["kaaba_due"], "south");
    EXPECT_EQ(Program().run({"qibla", "--city", south, "--json"}).json()["kaaba_due"], "north");
    for (const char* elsewhere : {"40,39.82", "40,39.81", "Berlin", "-10,39.9"}) {
        EXPECT_EQ(Program().run({"qibla", "--city", elsewhere, "--json"}).json()["kaaba_due"], nullptr) << elsewhere;
    }
    for (const char* language : {"tr", "fr", "de"}) {
        const Outcome other = Program().run({"qibla", "--city", north, "--lang", language});
        EXPECT_NE(other.out.find("\n! "), std::string::npos) << other.out;
        for (const std::string& line : other.lines()) EXPECT_LE(widthOf(line), 80) << line;
    }
}

TEST(Qibla, OnACompassLessTheDeclination) {
    const json qibla = Program().run({"qibla", "--city", "Ankara", "--json"}).json();
    const double bearing = qibla.at("qibla").at("bearing"), compass = qibla.at("compass_bearing");
    EXPECT_NEAR(compass, bearing - qibla.at("magnetic_declination").at("degrees").get<double>(), 1e-9);
    EXPECT_EQ(qibla.at("magnetic_declination").at("model"), "IGRF-11");
    EXPECT_EQ(qibla.at("magnetic_declination").at("epoch"), 2010.0);
}

TEST(Qibla, IsWhereTheSunStandsWhenItIsOverTheKaaba) {
    // On 28 May at 9:18 and on 16 July at 9:27 universal time the Sun stands in the zenith of the Kaaba, so that
    // everybody who sees it sees the qibla.
    const auto sunTime = [](const char* city, const char* date) {
        const json time = Program().run({"qibla", "--city", city, "--date", date, "--json"}).json();
        return time.at("sun_in_direction").at("hours").get<double>();
    };
    constexpr double fewMinutes = 4.0 / 60.0;
    EXPECT_NEAR(sunTime("Istanbul", "2026-05-28"), 12.0 + 18.0 / 60.0, fewMinutes);
    EXPECT_NEAR(sunTime("Berlin", "2026-05-28"), 11.0 + 18.0 / 60.0, fewMinutes);
    EXPECT_NEAR(sunTime("Jakarta", "2026-05-28"), 16.0 + 18.0 / 60.0, fewMinutes);
    EXPECT_NEAR(sunTime("Cape Town", "2026-07-16"), 11.0 + 27.0 / 60.0, fewMinutes);
    EXPECT_NEAR(sunTime("Berlin", "2026-07-16"), 11.0 + 27.0 / 60.0, fewMinutes);
}

TEST(Qibla, HasNoSunInItWhereTheSunStaysElsewhere) {
    const json qibla = Program().run({"qibla", "--city", "Tromsø", "--date", "2026-12-21", "--json"}).json();
    EXPECT_TRUE(qibla.at("sun_in_direction").is_null());
}

TEST(Hijri, GoesThereAndBack) {
    const json hijri = Program().run({"hijri", "2024-08-05", "--json"}).json().at("hijri");
    EXPECT_EQ(hijri.at("date"), "1446-01-31");
    EXPECT_EQ(hijri.at("calendar"), "table");
    EXPECT_EQ(Program().run({"hijri", "--to-gregorian", "1446-01-31", "--json"}).json().at("date"), "2024-08-05");
    EXPECT_EQ(Program().run({"hijri", "--to-gregorian", "1445-01-01", "--json"}).json().at("date"), "2023-07-19");
}

TEST(Hijri, ByTheCrescentIsNamedSoAndHasNoEnd) {
    const json hijri = Program().run({"hijri", "2024-08-05", "--crescent", "--json"}).json().at("hijri");
    EXPECT_EQ(hijri.at("date"), "1446-01-31");
    EXPECT_EQ(hijri.at("calendar"), "crescent");
    const Outcome old = Program().run({"hijri", "1990-01-01", "--crescent"});
    EXPECT_EQ(old.code, 0);
    EXPECT_NE(old.out.find("(Hijri, by the crescent)"), std::string::npos) << old.out;
}

TEST(Hijri, ByTheCrescentIsNotMadeUpWhereNoCrescentWasFound) {
    const Outcome far = Program().run({"hijri", "9999-12-31", "--crescent"});
    EXPECT_EQ(far.code, 1);
    EXPECT_EQ(far.out, "");
    EXPECT_TRUE(far.err.starts_with("quode: No crescent is known for 9999-12-31")) << far.err;
}

TEST(Calendar, LeavesOutWhatTheDayDoesNotHave) {
    for (const char* date : {"0001-01-01", "9999-12-31"}) {
        const Outcome run = Program().run({"calendar", date});
        EXPECT_EQ(run.code, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out.find("by the crescent"), std::string::npos) << run.out;
        EXPECT_TRUE(Program().run({"calendar", date, "--json"}).json().at("hijri").at(1).is_null());
    }
}

TEST(Calendar, HoldsSeasonAndRumiDate) {
    const json may = Program().run({"calendar", "2026-05-06", "--json"}).json();
    EXPECT_EQ(may.at("season"), json({{"half_year", "summer"}, {"day", 1}}));
    EXPECT_EQ(may.at("weekday"), 3);
    EXPECT_EQ(may.at("hijri").size(), 2u);
    const json november = Program().run({"calendar", "2026-11-08", "--json"}).json();
    EXPECT_EQ(november.at("season"), json({{"half_year", "winter"}, {"day", 1}}));
    // 31 March 1325 of the Rumi calendar was 13 April 1909.
    const json rumi = Program().run({"calendar", "1909-04-13", "--json"}).json().at("rumi");
    EXPECT_EQ(rumi, json({{"year", 1325}, {"month", 1}, {"day", 31}, {"month_name", "Mart"}}));
}

}  // namespace
}  // namespace quode::test
