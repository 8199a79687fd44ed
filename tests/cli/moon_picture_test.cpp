// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/moon_picture.h"

#include <gtest/gtest.h>

#include "terminal/text_layout.h"

namespace quode::cli {

using namespace terminal;

namespace {

constexpr int height = 9;

int count(const std::vector<std::string>& lines, std::string_view character) {
    int found = 0;
    for (const std::string& line : lines) {
        for (std::size_t at = line.find(character); at != std::string::npos; at = line.find(character, at + 1)) ++found;
    }
    return found;
}

TEST(MoonPicture, IsDarkAtNewMoonAndFullAtFullMoon) {
    const auto isLit = [](const std::vector<std::string>& picture) { return count(picture, "█") > 0; };
    EXPECT_FALSE(isLit(moonPicture(0.0, true, height)));
    EXPECT_GT(count(moonPicture(0.0, true, height), "·"), 100);
    EXPECT_EQ(count(moonPicture(1.0, true, height), "·"), 0);
}

TEST(MoonPicture, ShowsTheLitPartOfItsArea) {
    for (const double illuminated : {0.25, 0.5, 0.75}) {
        const auto picture = moonPicture(illuminated, true, 40);
        const double lit = count(picture, "█"), dark = count(picture, "·");
        EXPECT_NEAR(lit / (lit + dark), illuminated, 0.03);
    }
}

TEST(MoonPicture, IsMirroredForTheOtherSide) {
    const std::string right = moonPicture(0.5, true, height)[height / 2];
    const std::string left = moonPicture(0.5, false, height)[height / 2];
    EXPECT_TRUE(right.ends_with("█")) << right;
    EXPECT_TRUE(left.starts_with("█")) << left;
}

TEST(MoonPicture, HasLinesOfOneWidth) {
    for (const std::string& line : moonPicture(0.3, true, height)) EXPECT_EQ(displayWidth(line), 2 * height);
}

}  // namespace
}  // namespace quode::cli
