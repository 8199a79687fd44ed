// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the desktop starts at login, and whether Evolution rings.
#include "companion/autostart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "companion/ringer.h"
#include "platform/evolution_source.h"
#include "support/environment_of.h"
#include "support/file_content.h"
#include "support/temporary_folder.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class AutostartTest : public testing::Test {
  protected:
    AutostartTest() { fs::create_directories(system() / "autostart"); }

    fs::path home() const { return folder.path() / "home"; }
    fs::path system() const { return folder.path() / "xdg"; }
    fs::path program() const { return "/bin/sh"; }  // any that is there
    fs::path ownEntry() const { return home() / ".config/autostart/quode-alarmd.desktop"; }

    Environment environment(const std::string& desktop = "") const {
        return environmentOf(
            {{"HOME", home().string()}, {"XDG_CONFIG_DIRS", system().string()}, {"XDG_CURRENT_DESKTOP", desktop}});
    }
    void write(const fs::path& file, const std::string& text) const {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "[Desktop Entry]\nType=Application\n" << text;
    }
    TemporaryFolder folder;
};

TEST_F(AutostartTest, IsSeenToOnceAndSaid) {
    EXPECT_FALSE(serviceStartsAtLogin(environment()));
    const ServiceStart start = assureServiceStart(environment(), program());
    EXPECT_TRUE(start.isAssured);
    EXPECT_TRUE(start.isNew);
    EXPECT_THAT(start.message, HasSubstr("starts with each login"));
    EXPECT_THAT(contentOf(ownEntry()), HasSubstr("Exec=\"/bin/sh\"\n"));
    EXPECT_TRUE(serviceStartsAtLogin(environment()));
    const ServiceStart again = assureServiceStart(environment(), program());
    EXPECT_TRUE(again.isAssured);
    EXPECT_EQ(again.message, "");
}

TEST_F(AutostartTest, IsLeftToTheEntryOfThePackage) {
    write(system() / "autostart/quode-alarmd.desktop", "Exec=/bin/sh\n");
    EXPECT_TRUE(assureServiceStart(environment(), program()).isAssured);
    EXPECT_FALSE(fs::exists(ownEntry()));
}

TEST_F(AutostartTest, IsNotForcedOnAUserWhoHasSwitchedItOff) {
    write(ownEntry(), "Exec=/bin/sh\nHidden=true\n");
    const ServiceStart start = assureServiceStart(environment(), program());
    EXPECT_FALSE(start.isAssured);
    EXPECT_THAT(start.message, HasSubstr(ownEntry().string()));
    EXPECT_THAT(contentOf(ownEntry()), HasSubstr("Hidden=true"));
}

TEST_F(AutostartTest, IsReportedAsMissingWithoutTheProgram) {
    const ServiceStart start = assureServiceStart(environment(), "/nowhere/quode-alarmd");
    EXPECT_FALSE(start.isAssured);
    EXPECT_THAT(start.message, HasSubstr("/nowhere/quode-alarmd"));
    EXPECT_FALSE(fs::exists(ownEntry()));
}

TEST_F(AutostartTest, QuotesAPathWithBlanks) {
    const fs::path service = folder.path() / "a folder/100%/quode-alarmd";
    fs::create_directories(service.parent_path());
    std::ofstream(service) << "";
    fs::permissions(service, fs::perms(0755));
    assureServiceStart(environment(), service);
    EXPECT_THAT(contentOf(ownEntry()), HasSubstr("a folder/100%%/quode-alarmd\"\n"));
    EXPECT_TRUE(serviceStartsAtLogin(environment()));
}

// --- Evolution

class EvolutionTest : public AutostartTest {
  protected:
    fs::path reminders() const { return system() / "autostart/org.gnome.Evolution-alarm-notify.desktop"; }
    fs::path source() const { return home() / ".config/evolution/sources/quode.source"; }
    fs::path data() const { return home() / "data"; }

    void install() { write(reminders(), "Exec=/bin/sh\nOnlyShowIn=GNOME;XFCE;\n"); }
    void connect() { EvolutionSource(home() / ".config").connect(data() / "Quode.ics", true); }
    void change(const std::string& from, const std::string& to) {
        std::string text = contentOf(source());
        ASSERT_NE(text.find(from), std::string::npos);
        text.replace(text.find(from), from.size(), to);
        std::ofstream(source()) << text;
    }
    std::string obstacle(const std::string& desktop = "") { return evolutionObstacle(environment(desktop), data()); }
};

TEST_F(EvolutionTest, RingsWhenItIsInstalledConnectedAndIncluded) {
    install();
    connect();
    EXPECT_EQ(obstacle(), "");
    EXPECT_EQ(obstacle("ubuntu:GNOME"), "");
    EXPECT_EQ(ringerInEffect({.ringer = Ringer::evolution}, environment(), data()), Ringer::evolution);
    EXPECT_EQ(ringerInEffect({.ringer = Ringer::quode}, environment(), data()), Ringer::quode);
}

TEST_F(EvolutionTest, DoesNotRingWithoutItsProgram) {
    connect();
    EXPECT_THAT(obstacle(), HasSubstr("is not installed"));
    EXPECT_EQ(ringerInEffect({.ringer = Ringer::evolution}, environment(), data()), Ringer::quode);
    write(reminders(), "Exec=/nowhere/evolution-alarm-notify\n");
    EXPECT_THAT(obstacle(), HasSubstr("is not installed"));
}

TEST_F(EvolutionTest, DoesNotRingWhereItsProgramDoesNotStart) {
    install();
    connect();
    EXPECT_THAT(obstacle("sway"), HasSubstr("does not start on this desktop"));
    write(home() / ".config/autostart/org.gnome.Evolution-alarm-notify.desktop", "Exec=/bin/sh\nHidden=true\n");
    EXPECT_THAT(obstacle(), HasSubstr("switched off by"));
}

TEST_F(EvolutionTest, DoesNotRingForACalendarThatItDoesNotRemindOf) {
    install();
    EXPECT_THAT(obstacle(), HasSubstr("not connected"));
    connect();
    change("Enabled=true", "Enabled=false");
    EXPECT_THAT(obstacle(), HasSubstr("disabled"));
    change("Enabled=false", "Enabled=true");
    change("IncludeMe=true", "IncludeMe=false");
    EXPECT_THAT(obstacle(), HasSubstr("not included"));
    change("/data/Quode.ics", "/other/Quode.ics");
    EXPECT_THAT(obstacle(), HasSubstr("another calendar file"));
}

}  // namespace
}  // namespace quode::test
