// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode doctor and quode alarm test: what the desktop has to say.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <nlohmann/json.hpp>

#include "../data/tzif_writer.h"
#include "private_bus.h"
#include "program.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

/// What the doctor has found under a key.
json checkOf(const Program& program, const std::string& key) {
    const json checks = program.run({"doctor", "--json"}).json()["checks"];
    for (const json& check : checks) {
        if (check["key"] == key) return check;
    }
    return {};
}

TEST(Doctor, ChecksAllThatTimesAndAlarmsDependOn) {
    const Program program;
    const json report = program.run({"doctor", "--json"}).json();
    std::vector<std::string> keys;
    for (const json& check : report["checks"]) keys.push_back(check["key"]);
    EXPECT_EQ(keys, (std::vector<std::string>{"data_folder", "city_database", "user_database", "calendar", "sounds",
                                              "notifications", "alarm_service", "zone_rules", "rule"}));
    EXPECT_EQ(report["ok"], true) << "nobody wants to be rung yet";
    EXPECT_EQ(program.run({"doctor"}).code, 0);
}

TEST(Doctor, MakesNothing) {
    const Program program;
    program.run({"doctor"});
    EXPECT_FALSE(fs::exists(program.dataFolder() / "user.sqlite"));
    EXPECT_FALSE(fs::exists(program.dataFolder() / "Quode.ics"));
}

TEST(Doctor, SaysWhatToDoForAlarmsThatAreOn) {
    const Program program;
    program.run({"alarm", "on", "all"});
    const Outcome run = program.run({"doctor"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.lineWith("User database"), "ok  User database  1 city, home Istanbul; 6 alarms on");
    EXPECT_EQ(run.lineWith("Calendar"), "ok  Calendar       Quode.ics, 6 events");
    EXPECT_EQ(run.lineWith("Sounds"), "ok  Sounds         chime");
    EXPECT_EQ(run.lineWith("Notifications"), "!   Notifications  no session bus");
    EXPECT_EQ(run.lineWith("Alarm service"),
              "!   Alarm service  The alarm service is not running: nothing rings. Start it:");
    EXPECT_EQ(run.lineWith("                   quode-alarmd"), "                   quode-alarmd");
    EXPECT_TRUE(run.lineWith("Zone rules").starts_with("ok  Zone rules     Europe/Istanbul; zone data 20"));
    EXPECT_NE(run.out.find("ok  Rule           Istanbul: Sun 19° and 17° below the horizon, margin 10 min\n"
                           "                   47 s\n"),
              std::string::npos)
        << run.out;
    for (const std::string& line : run.lines()) EXPECT_LE(widthOf(line), 80) << line;
    const json service = checkOf(program, "alarm_service");
    EXPECT_EQ(service["state"], "problem");
    EXPECT_EQ(service["command"], "quode-alarmd");
}

TEST(Doctor, FindsEventsThatAreMissing) {
    const Program program;
    program.run({"alarm", "on", "fajr"});
    fs::remove(program.dataFolder() / "Quode.ics");
    const json check = checkOf(program, "calendar");
    EXPECT_EQ(check["state"], "note");
    EXPECT_EQ(check["advice"], "The events of Fajr are not up to date. The alarm service renews them when it runs.");
}

TEST(Doctor, FindsASoundThatIsGone) {
    const Program program;
    const fs::path file = program.folder() / "ring.ogg";
    program.runShell("printf 'OggS12345678' > '" + file.string() + "'");
    program.run({"alarm", "set", "fajr", "--sound", file.string()});
    program.run({"alarm", "on", "fajr"});
    EXPECT_EQ(checkOf(program, "sounds")["state"], "ok");
    fs::remove(file);
    const json check = checkOf(program, "sounds");
    EXPECT_EQ(check["state"], "problem");
    EXPECT_EQ(check["advice"], "The sound \"" + file.string() +
                                   "\" no longer exists: \"chime\" plays in its place. Choose another one:");
    EXPECT_EQ(check["command"], "quode alarm set PRAYER --sound NAME");
}

TEST(Doctor, SaysThatTheServiceDoesNotStartWithTheNextLoginThoughItIsNotRunningEither) {
    const Program program;
    program.run({"alarm", "on", "asr"});
    EXPECT_EQ(program.run({"doctor"}).out.find("next login"), std::string::npos);
    fs::remove(program.folder() / ".config/autostart/quode-alarmd.desktop");
    const json check = checkOf(program, "alarm_service");
    EXPECT_EQ(check["state"], "problem");
    EXPECT_NE(check["text"].get<std::string>().find("next login"), std::string::npos) << check["text"];
    EXPECT_EQ(check["command"], "quode-alarmd");
}

TEST(Doctor, KeepsNamesAndTextsApartInEveryLanguage) {
    const Program program;
    for (const std::string language : {"en", "de", "tr", "ar"}) {
        const json checks = program.run({"--lang", language, "doctor", "--json"}).json()["checks"];
        const Outcome page = program.run({"--lang", language, "doctor"});
        for (const json& check : checks) {
            const std::string name = check["name"];
            EXPECT_NE(page.out.find(" " + name + " "), std::string::npos) << name << "\n" << page.out;
        }
    }
}

TEST(Doctor, FindsAHomeThatIsGone) {
    const Program program;
    program.run({"city", "home", "Berlin"});
    program.runShell("python3 -c \"import sqlite3; c = sqlite3.connect('" +
                     (program.dataFolder() / "user.sqlite").string() +
                     "'); c.execute('UPDATE USER_CITY SET ID = 999999999 WHERE SETASHOME = 1'); c.commit()\"");
    const json check = checkOf(program, "user_database");
    EXPECT_EQ(check["state"], "problem");
    EXPECT_EQ(check["command"], "quode city home NAME");
    EXPECT_NE(program.run({"city", "list"}).out.find("no longer in the city database"), std::string::npos);
    const std::string alarms = program.run({"alarm", "list"}).out;
    EXPECT_NE(alarms.find("999999999"), std::string::npos) << alarms;
    EXPECT_EQ(alarms.find("You have no cities yet"), std::string::npos) << alarms;
    const Outcome today = program.run({"next"});
    EXPECT_EQ(today.code, 6);
    EXPECT_NE(today.err.find("Choose another one: quode city home NAME"), std::string::npos) << today.err;
}

/// Gives the machine zone data of its own, in which Berlin is two hours ahead of Greenwich all the year.
void giveZoneData(Program& program, const std::string& edition) {
    const fs::path folder = program.folder() / "zones";
    fs::create_directories(folder / "Europe");
    std::ofstream(folder / "Europe/Berlin", std::ios::binary) << tzif(7200, {}, "<+02>-2");
    std::ofstream(folder / "Europe/Istanbul", std::ios::binary) << tzif(10800, {}, "<+03>-3");
    std::ofstream(folder / "tzdata.zi") << "# version " << edition << "\n";
    program.with("TZDIR", folder.string()).run({"city", "home", "Berlin"});
}

TEST(Doctor, FindsAHomeWhoseClockThisSystemTellsOtherwise) {
    Program program;
    giveZoneData(program, "unknown");
    const json check = checkOf(program, "zone_rules");
    EXPECT_EQ(check["state"], "problem");
    EXPECT_EQ(check["text"], "a stored clock differs from that of this system");
    EXPECT_NE(check["advice"].get<std::string>().find("Europe/Berlin: stored UTC+1"), std::string::npos) << check;
    EXPECT_NE(check["advice"].get<std::string>().find("Update Quode and the zone data of the system (tzdata)."),
              std::string::npos)
        << check;
}

TEST(Doctor, DoesNotBelieveZoneDataThatAreOlder) {
    Program program;
    giveZoneData(program, "2025b");
    const json check = checkOf(program, "zone_rules");
    EXPECT_EQ(check["state"], "ok");
    EXPECT_EQ(check["text"], "Europe/Istanbul, Europe/Berlin; zone data 2026f");
    const json today = program.run({"today", "--json"}).json();
    EXPECT_EQ(today["warnings"], json::array());
    EXPECT_EQ(today["zone"]["offset_hours"], 1.0);
    EXPECT_EQ(today["zone"]["data"], (json{{"edition", "2026f"}, {"of_system", false}}));
}

TEST(NewerZoneData, MoveEveryFront) {
    Program program;
    program.run({"city", "home", "Berlin"});
    program.run({"alarm", "on", "fajr"});
    const json before = program.run({"today", "--json"}).json();
    const json rings = program.run({"alarm", "upcoming", "--json"}).json()["rings"];
    giveZoneData(program, "2031a");
    EXPECT_EQ(checkOf(program, "zone_rules")["text"], "Europe/Istanbul, Europe/Berlin; zone data 2031a of this system");
    EXPECT_EQ(checkOf(program, "zone_rules")["state"], "ok");
    const json after = program.run({"today", "--json"}).json();
    EXPECT_EQ(after["zone"]["offset_hours"], 2.0);
    EXPECT_EQ(after["zone"]["data"], (json{{"edition", "2031a"}, {"of_system", true}}));
    EXPECT_NEAR(after["prayers"][0]["hours"].get<double>(), before["prayers"][0]["hours"].get<double>() + 1.0,
                2.0 / 3600.0 * 2.0)
        << "the clock moves by an hour; the moments at which the engine looks at the Sun move with it";
    EXPECT_EQ(after["prayers"][0]["instant"], before["prayers"][0]["instant"]) << "the Sun has not moved";
    EXPECT_EQ(program.run({"alarm", "upcoming", "--json"}).json()["rings"][0]["instant"], rings[0]["instant"]);
    EXPECT_NE(program.run({"month", "2026-12", "--format", "csv"}).out.find(",2,"), std::string::npos);
    EXPECT_NE(program.run({"today"}).lineWith("Time zone").find("(+) 02:00"), std::string::npos);
    EXPECT_NE(program.run({"city", "show", "Berlin"}).out.find("no summer time"), std::string::npos);
}

TEST(NewerZoneData, ThatLackAZoneAreNamedWithTheOneThatCounts) {
    Program program;
    giveZoneData(program, "2031a");
    fs::remove(program.folder() / "zones/Europe/Istanbul");
    const json check = checkOf(program, "zone_rules");
    EXPECT_EQ(check["state"], "note");
    EXPECT_EQ(check["text"], "Europe/Istanbul; zone data 2026f; Europe/Berlin; zone data 2031a of this system");
    EXPECT_NE(check["advice"].get<std::string>().find("Europe/Istanbul: this system has no zone data of that name"),
              std::string::npos)
        << check;
}

// --- the desktop

TEST(Desktop, WithoutABusIsReportedAtOnce) {
    const Program program;
    const auto start = std::chrono::steady_clock::now();
    const json check = checkOf(program, "notifications");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(check["state"], "note") << "no alarm is on";
    EXPECT_EQ(check["text"], "no session bus");
    EXPECT_EQ(check["advice"], "Alarms are heard but not shown. Run quode in your desktop session.");
}

TEST(Desktop, WithABusThatNobodyAnswersIsReportedAtOnce) {
    Program program;
    program.with("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (program.folder() / "nobody").string());
    EXPECT_EQ(checkOf(program, "notifications")["text"], "no session bus");
    program.with("DBUS_SESSION_BUS_ADDRESS", "nonsense");
    EXPECT_EQ(checkOf(program, "notifications")["text"], "no session bus");
}

TEST(Desktop, WithoutAServiceIsReportedWithWhatToDo) {
    const PrivateBus bus;
    Program program;
    program.with("DBUS_SESSION_BUS_ADDRESS", bus.address());
    const json check = checkOf(program, "notifications");
    EXPECT_EQ(check["text"], "no service");
    EXPECT_NE(check["advice"].get<std::string>().find("such as dunst"), std::string::npos) << check;
    const Outcome test = program.run({"alarm", "test", "--seconds", "1"});
    EXPECT_EQ(test.code, 1);
    EXPECT_NE(test.err.find("No notification service showed it."), std::string::npos) << test.err;
}

TEST(Desktop, WithAServiceIsNamed) {
    PrivateBus bus;
    bus.startNotifications("described");
    Program program;
    program.with("DBUS_SESSION_BUS_ADDRESS", bus.address());
    const json check = checkOf(program, "notifications");
    EXPECT_EQ(check["state"], "ok");
    EXPECT_EQ(check["text"], "Paper 1.0");
}

TEST(Desktop, WithAServiceThatIsSilentIsToBeRestarted) {
    PrivateBus bus;
    bus.startNotifications("plain");
    Program program;
    program.with("DBUS_SESSION_BUS_ADDRESS", bus.address());
    const json check = checkOf(program, "notifications");
    EXPECT_EQ(check["state"], "problem");
    EXPECT_EQ(check["text"], "the service does not answer");
}

TEST(AlarmTest, IsShownAndClosed) {
    PrivateBus bus;
    bus.startNotifications("plain");
    Program program;
    program.with("DBUS_SESSION_BUS_ADDRESS", bus.address()).with("CANBERRA_DRIVER", "null");
    const Outcome test = program.run({"alarm", "test", "isha", "--seconds", "1", "--json"});
    EXPECT_EQ(test.json()["prayer"], "Isha");
    EXPECT_EQ(test.json()["shown"], true) << test.err;
    EXPECT_EQ(test.json()["sound"], "chime");
    EXPECT_EQ(test.json()["stopped_by_user"], false);
    const json shown = bus.nextCall();
    EXPECT_EQ(shown["call"], "Notify");
    EXPECT_EQ(shown["title"], "Isha");
    EXPECT_EQ(shown["body"], "Istanbul\nA test of the alarm");
    EXPECT_EQ(shown["actions"], (json{"stop", "Stop"}));
    EXPECT_EQ(bus.nextCall()["call"], "CloseNotification");
}

TEST(AlarmTest, WithoutDesktopAndSoundSaysSoAtOnce) {
    Program program;
    program.with("CANBERRA_DRIVER", "nosuch");
    const auto start = std::chrono::steady_clock::now();
    const Outcome test = program.run({"alarm", "test", "--json"});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_EQ(test.code, 1);
    EXPECT_EQ(test.json()["shown"], false);
    EXPECT_TRUE(test.json()["sound_problem"].is_string());
    EXPECT_NE(test.err.find("Is the sound of this system on?"), std::string::npos) << test.err;
}

}  // namespace
}  // namespace quode::test
