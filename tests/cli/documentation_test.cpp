// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the documents show is what the program prints.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "program.h"

namespace quode::test {
namespace {

std::string documentText(const std::string& document) {
    std::ifstream stream(std::string(QUODE_SOURCE) + "/" + document);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

struct Example {
    std::string command;
    std::string output;
};

/// The console blocks of a document: their commands, with what stands below each.
std::vector<std::vector<Example>> examplesOf(const std::string& document) {
    std::ifstream stream(std::string(QUODE_SOURCE) + "/" + document);
    std::vector<std::vector<Example>> blocks;
    bool isInside = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("```")) {
            isInside = line == "```console";
            if (isInside) blocks.emplace_back();
        } else if (isInside && line.starts_with("$ ")) {
            blocks.back().push_back({line.substr(2), ""});
        } else if (isInside && !blocks.back().empty()) {
            blocks.back().back().output += line + "\n";
        }
    }
    return blocks;
}

class Documents : public testing::TestWithParam<const char*> {};

TEST_P(Documents, ShowRealOutput) {
    const auto blocks = examplesOf(GetParam());
    EXPECT_FALSE(blocks.empty());
    for (const std::vector<Example>& block : blocks) {
        const Program program;  // one user, who does one thing after the other
        program.installCalendarService();
        for (const Example& example : block) {
            EXPECT_EQ(program.runShell(example.command).out, example.output) << example.command;
        }
    }
}

TEST(DocumentOfTheCommandLine, TellsOfEveryCommandOfTheHelp) {
    const std::string text = documentText("docs/cli.md");
    for (const char* command : {"city list",      "city add",         "city home",           "city move",
                                "city remove",    "city search",      "city show",           "alarm list",
                                "alarm set",      "method list",      "method show",         "method suggest",
                                "method compare", "method set",       "method import",       "method remove-table",
                                "alarm days",     "alarm remind",     "alarm skip",          "alarm mute",
                                "alarm on",       "alarm off",        "alarm upcoming",      "alarm test",
                                "settings",       "calendar connect", "calendar disconnect", "doctor",
                                "doctor zones"}) {
        EXPECT_NE(text.find(std::string("quode ") + command), std::string::npos) << command;
        EXPECT_EQ(Program().runShell(std::string("quode ") + command + " --help").code, 0) << command;
    }
}

INSTANTIATE_TEST_SUITE_P(OfTheProject, Documents, testing::Values("README.md", "docs/cli.md"));

}  // namespace
}  // namespace quode::test
