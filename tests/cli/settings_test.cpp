// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode settings, quode calendar connect and disconnect.
#include <gtest/gtest.h>

#include <fstream>

#include <nlohmann/json.hpp>

#include "program.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;

std::size_t filesIn(const fs::path& folder) {
    std::size_t count = 0;
    if (!fs::exists(folder)) return 0;
    for (const auto& entry : fs::directory_iterator(folder)) count += entry.path().extension() == ".ics" ? 1 : 0;
    return count;
}

void expectRefusedSetting(const std::vector<std::string>& words, int code, const std::string& message) {
    const Program program;
    const Outcome run = program.run(words);
    EXPECT_EQ(run.code, code) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
}

TEST(Settings, AreShownWithTheirMeaning) {
    const Program program;
    EXPECT_EQ(program.run({"settings"}).out,
              "sound     chime   of alarms that have none of their own\n"
              "calendar  ics     how the events of the alarms are stored\n"
              "ringer    quode   the program that rings\n"
              "language  auto    the language of all programs\n"
              "panel     auto    the layout of the panel\n"
              "colors    2       the colour scheme of the panel\n"
              "text      100     the size of texts in windows, percent\n"
              "tray      on      whether the panel has an icon in the tray\n"
              "volume    100     of the alarms, percent of the desktop's\n"
              "fade      0       seconds until an alarm has its volume\n"
              "media     keep    what media players do while an alarm sounds\n"
              "urgency   urgent  of the notifications of alarms\n");
    const auto settings = program.run({"settings", "--json"}).json()["settings"];
    EXPECT_EQ(settings, (nlohmann::json{{"sound", "chime"},
                                        {"calendar", "ics"},
                                        {"ringer", "quode"},
                                        {"language", "auto"},
                                        {"panel", "auto"},
                                        {"colors", "2"},
                                        {"text", "100"},
                                        {"tray", "on"},
                                        {"volume", "100"},
                                        {"fade", "0"},
                                        {"media", "keep"},
                                        {"urgency", "urgent"}}));
    EXPECT_FALSE(fs::exists(program.dataFolder() / "user.sqlite")) << "looking makes nothing";
}

TEST(Settings, OneIsShownWithItsChoices) {
    const Outcome sound = Program().run({"settings", "sound"});
    EXPECT_EQ(sound.lines().at(0), "chime");
    for (const char* name : {"bell", "chime", "gong", "morning"}) {
        EXPECT_NE(sound.out.find(name), std::string::npos) << sound.out;
    }
    EXPECT_EQ(Program().run({"settings", "ringer", "--json"}).json()["settings"]["ringer"], "quode");
}

TEST(Settings, AreKept) {
    const Program program;
    EXPECT_EQ(program.run({"settings", "sound", "gong"}).code, 0);
    EXPECT_EQ(program.run({"settings", "sound"}).lines().at(0), "gong");
    EXPECT_EQ(program.run({"settings", "panel", "tablet"}).code, 0);
    EXPECT_EQ(program.run({"settings", "panel"}).lines().at(0), "tablet");
    EXPECT_EQ(program.run({"settings", "panel", "auto", "--json"}).json()["settings"]["panel"], "auto");
    EXPECT_EQ(program.run({"settings", "colors", "6"}).code, 0);
    EXPECT_EQ(program.run({"settings", "colors"}).lines().at(0), "6");
    EXPECT_EQ(program.run({"alarm", "list", "--json"}).json()["alarms"][0]["sound"], "gong");
}

TEST(Settings, OfTheMannersOfAlarmsAreKept) {
    const Program program;
    const std::map<std::string, std::string> wanted{
        {"volume", "60"}, {"fade", "20"}, {"media", "pause"}, {"urgency", "normal"}};
    for (const auto& [key, value] : wanted) EXPECT_EQ(program.run({"settings", key, value}).code, 0) << key;
    const auto settings = program.run({"settings", "--json"}).json()["settings"];
    for (const auto& [key, value] : wanted) EXPECT_EQ(settings[key], value) << key;
    expectRefusedSetting({"settings", "volume", "5"}, 2, "volume is a number from 10 to 100, not \"5\".");
    expectRefusedSetting({"settings", "fade", "61"}, 2, "fade is a number from 0 to 60, not \"61\".");
    expectRefusedSetting({"settings", "media", "stop"}, 2, "media is keep or pause, not \"stop\".");
    expectRefusedSetting({"settings", "urgency", "low"}, 2, "urgency is normal or urgent, not \"low\".");
}

TEST(Settings, AreRefusedWhenUnknown) {
    expectRefusedSetting(
        {"settings", "colour"}, 2,
        "There is no setting \"colour\". Use one of sound, calendar, ringer, language, panel, colors, text, "
        "tray, volume, "
        "fade, media, urgency.");
    expectRefusedSetting({"settings", "calendar", "caldav"}, 2, "calendar is ics or vdir, not \"caldav\".");
    expectRefusedSetting({"settings", "ringer", "cron"}, 2, "ringer is quode or evolution, not \"cron\".");
    expectRefusedSetting({"settings", "panel", "huge"}, 2, "panel is auto, phone or tablet, not \"huge\".");
    expectRefusedSetting({"settings", "colors", "7"}, 2, "colors is a number from 1 to 6, not \"7\".");
    expectRefusedSetting({"settings", "sound", "nosuch"}, 1, "There is no sound \"nosuch\"");
    expectRefusedSetting({"settings", "ringer", "evolution"}, 2, "quode calendar connect evolution --ring");
}

TEST(Settings, TheLayoutOfTheCalendarTakesTheEventsAlong) {
    const Program program;
    program.run({"alarm", "on", "all"});
    EXPECT_TRUE(fs::exists(program.dataFolder() / "Quode.ics"));
    EXPECT_EQ(program.run({"settings", "calendar", "vdir"}).code, 0);
    EXPECT_EQ(filesIn(program.dataFolder() / "calendar"), 6U);
    const auto doctor = program.run({"doctor", "--json"}).json()["checks"][3];
    EXPECT_EQ(doctor["key"], "calendar");
    EXPECT_EQ(doctor["state"], "ok");
    EXPECT_EQ(doctor["text"], "calendar, 6 events");
    EXPECT_EQ(program.run({"settings", "calendar", "ics"}).code, 0);
    EXPECT_EQ(filesIn(program.dataFolder() / "calendar"), 0U);
    EXPECT_EQ(program.run({"doctor", "--json"}).json()["checks"][3]["text"], "Quode.ics, 6 events");
}

// --- Evolution

TEST(CalendarConnection, IsMadeAndUndone) {
    const Program program;
    program.installCalendarService();
    const Outcome connect = program.run({"calendar", "connect", "evolution", "--json"});
    EXPECT_EQ(connect.code, 0) << connect.err;
    EXPECT_EQ(connect.json()["connected"], true);
    EXPECT_EQ(connect.json()["ringer"]["program"], "quode") << "it only shows, unless it has to ring";
    const fs::path description = connect.json()["description"].get<std::string>();
    EXPECT_TRUE(fs::exists(description));
    EXPECT_TRUE(description.string().starts_with(program.folder().string()));

    const Outcome undone = program.run({"calendar", "disconnect"});
    EXPECT_EQ(undone.code, 0);
    EXPECT_NE(undone.out.find("Disconnected from Evolution."), std::string::npos) << undone.out;
    EXPECT_FALSE(fs::exists(description));
    EXPECT_NE(program.run({"calendar", "disconnect"}).out.find("was not connected"), std::string::npos);
}

/// Evolution's reminder program, as the desktop starts it.
void installReminders(Program& program) {
    const fs::path folder = program.folder() / "xdg/autostart";
    fs::create_directories(folder);
    std::ofstream(folder / "org.gnome.Evolution-alarm-notify.desktop") << "[Desktop Entry]\nExec=/bin/sh\n";
    program.with("XDG_CONFIG_DIRS", (program.folder() / "xdg").string());
}

TEST(CalendarConnection, LetsExactlyOneProgramRing) {
    Program program;
    installReminders(program);
    program.run({"alarm", "on", "all"});
    EXPECT_EQ(program.run({"calendar", "connect", "evolution", "--ring", "--json"}).json()["ringer"]["program"],
              "evolution");
    EXPECT_EQ(program.run({"settings", "--json"}).json()["settings"]["ringer"], "evolution");
    EXPECT_EQ(program.run({"settings", "ringer", "quode", "--json"}).json()["settings"]["ringer"], "quode");
    EXPECT_EQ(program.run({"settings", "ringer", "evolution", "--json"}).json()["settings"]["ringer"], "evolution");
    EXPECT_EQ(program.run({"calendar", "disconnect", "--json"}).json()["ringer"]["program"], "quode");
}

TEST(CalendarConnection, IsRefusedWhereNothingIsInstalledThatCouldShowTheAlarms) {
    Program program;
    program.with("XDG_DATA_DIRS", "/nonexistent");
    const Outcome connect = program.run({"calendar", "connect", "evolution"});
    EXPECT_EQ(connect.code, 1);
    EXPECT_EQ(connect.out, "");
    EXPECT_NE(connect.err.find("calendar service are not installed"), std::string::npos) << connect.err;
    EXPECT_NE(program.run({"calendar", "disconnect"}).out.find("was not connected"), std::string::npos);
}

TEST(CalendarConnection, LetsNothingRingThatIsNotInstalled) {
    Program program;
    program.with("XDG_CONFIG_DIRS", "/nonexistent");
    const Outcome connect = program.run({"calendar", "connect", "evolution", "--ring"});
    EXPECT_EQ(connect.code, 1);
    EXPECT_NE(connect.err.find("Evolution's reminder program is not installed"), std::string::npos) << connect.err;
    EXPECT_EQ(program.run({"settings", "--json"}).json()["settings"]["ringer"], "quode");
}

TEST(CalendarConnection, LetsQuodeRingWhenEvolutionNoLongerDoes) {
    Program program;
    installReminders(program);
    program.run({"alarm", "on", "all"});
    program.run({"calendar", "connect", "evolution", "--ring"});
    program.with("XDG_CONFIG_DIRS", "/nonexistent");
    const auto ringer = program.run({"alarm", "upcoming", "--json"}).json()["ringer"];
    EXPECT_EQ(ringer["program"], "quode");
    EXPECT_NE(ringer["problem"].get<std::string>().find("Quode rings in its place"), std::string::npos);
    EXPECT_NE(program.run({"doctor"}).out.find("is not installed"), std::string::npos);
}

TEST(CalendarConnection, NeedsTheLayoutOfOneFile) {
    const Program program;
    program.installCalendarService();
    program.run({"settings", "calendar", "vdir"});
    const Outcome refused = program.run({"calendar", "connect", "evolution"});
    EXPECT_EQ(refused.code, 2);
    EXPECT_NE(refused.err.find("quode settings calendar ics"), std::string::npos) << refused.err;
    program.run({"settings", "calendar", "ics"});
    program.run({"calendar", "connect", "evolution"});
    const Outcome layout = program.run({"settings", "calendar", "vdir"});
    EXPECT_EQ(layout.code, 2);
    EXPECT_NE(layout.err.find("calendar disconnect"), std::string::npos) << layout.err;
}

TEST(CalendarConnection, IsOfEvolutionOnly) {
    expectRefusedSetting({"calendar", "connect", "kmail"}, 2, "Only evolution can be connected");
    expectRefusedSetting({"calendar", "connect"}, 2, "quode calendar connect needs PROGRAM.");
}

}  // namespace
}  // namespace quode::test
