// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/command.h"

#include <gtest/gtest.h>

namespace quode::host {
namespace {

using app::ExitCode;

PanelOptions optionsOf(const std::vector<std::string>& arguments) {
    return std::get<PanelOptions>(readCommandLine(arguments));
}

void expectUsageError(const std::vector<std::string>& arguments, const std::string& part) {
    try {
        readCommandLine(arguments);
        ADD_FAILURE() << arguments.front() << " was understood";
    } catch (const app::Failure& failure) {
        EXPECT_EQ(failure.code(), ExitCode::usage);
        EXPECT_NE(std::string(failure.what()).find(part), std::string::npos) << failure.what();
    }
}

TEST(PanelCommandLine, OpensThePanelWithoutArguments) {
    const PanelOptions options = optionsOf({});
    EXPECT_FALSE(options.screenshot);
    EXPECT_FALSE(options.language);
    EXPECT_EQ(optionsOf({"--lang", "tr"}).language, "tr");
}

TEST(PanelCommandLine, TakesWhatAPictureIsToShow) {
    const auto options = optionsOf({"--screenshot", "a.png", "--scale", "1.5", "--info", "--all", "--compass", "--city",
                                    "-33.87,151.21", "--date", "2026-11-21", "--lang", "de"});
    ASSERT_TRUE(options.screenshot);
    EXPECT_EQ(options.screenshot->file, "a.png");
    EXPECT_EQ(options.screenshot->scale, 1.5);
    EXPECT_TRUE(options.screenshot->info && options.screenshot->all && options.screenshot->compass);
    EXPECT_EQ(options.screenshot->city->substr(options.screenshot->city->find('-')), "-33.87,151.21");
    EXPECT_EQ(options.screenshot->date->Days, 21);
    EXPECT_EQ(options.language, "de");
    EXPECT_EQ(optionsOf({"--screenshot", "a.png"}).screenshot->scale, 1.0);
}

TEST(PanelCommandLine, SaysWhatCannotBeUnderstood) {
    expectUsageError({"--nonsense"}, "quode-panel does not know \"--nonsense\". Try: quode-panel --help");
    expectUsageError({"--screenshot"}, "--help");
    expectUsageError({"--screenshot", ""}, "name of a file");
    expectUsageError({"--screenshot", "a.png", "--scale", "9"}, "from 1 to 4, not \"9\"");
    expectUsageError({"--screenshot", "a.png", "--scale", "large"}, "from 1 to 4");
    expectUsageError({"--screenshot", "a.png", "--date", "2026-02-30"}, "There is no day");
    expectUsageError({"--info"}, "--info is for a picture: add --screenshot FILE.");
    expectUsageError({"--city", "Ankara"}, "--city is for a picture");
}

TEST(PanelCommandLine, HelpNamesEveryArgument) {
    const auto line = readCommandLine({"--help"});
    const std::string help = std::get<terminal::HelpText>(line).text;
    for (const char* name :
         {"--screenshot", "--scale", "--info", "--all", "--compass", "--city", "--date", "--lang", "--version"}) {
        EXPECT_NE(help.find(name), std::string::npos) << name;
    }
    EXPECT_TRUE(std::holds_alternative<terminal::VersionRequest>(readCommandLine({"--version"})));
}

}  // namespace
}  // namespace quode::host
