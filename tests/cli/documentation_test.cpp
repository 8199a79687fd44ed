// What the documents show is what the program prints.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "program.h"

namespace quode::test {
namespace {

struct Example {
    std::string command;
    std::string output;
};

/// The commands of the console blocks of a document, with what stands below them.
std::vector<Example> examplesOf(const std::string& document) {
    std::ifstream stream(std::string(QUODE_SOURCE) + "/" + document);
    std::vector<Example> examples;
    bool isInside = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("```")) {
            isInside = line == "```console";
        } else if (isInside && line.starts_with("$ ")) {
            examples.push_back({line.substr(2), ""});
        } else if (isInside && !examples.empty()) {
            examples.back().output += line + "\n";
        }
    }
    return examples;
}

class Documents : public testing::TestWithParam<const char*> {};

TEST_P(Documents, ShowRealOutput) {
    const std::vector<Example> examples = examplesOf(GetParam());
    EXPECT_FALSE(examples.empty());
    for (const Example& example : examples) {
        EXPECT_EQ(Program().runShell(example.command).out, example.output) << example.command;
    }
}

INSTANTIATE_TEST_SUITE_P(OfTheProject, Documents, testing::Values("README.md", "docs/cli.md"));

}  // namespace
}  // namespace quode::test
