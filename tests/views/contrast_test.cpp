// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Measures the contrast of every colour scheme. docs/contrast.md is the result; run this program with QUODE_WRITE_PAGES=1 to
// write it again.
#include "views/contrast.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "common/color_schemes.h"
#include "support/fixtures.h"
#include "views/MessageView.h"

namespace quode::test {
namespace {

constexpr double forText = 4.5;      // letters of ordinary size
constexpr double forDrawings = 3.0;  // glyphs, frames and the focus ring

// The opaque card on which the panel shows the widget.
constexpr Color card{14.0 / 255.0, 14.0 / 255.0, 16.0 / 255.0, 1.0};

struct Pair {
    std::string what;
    double needed;
    double found;

    bool fails() const { return found < needed; }
};

std::vector<Pair> pairsOf(int schemeId) {
    const ColorScheme scheme = colorScheme(schemeId);
    const Color& first = scheme[0];
    const Color& second = scheme[1];
    const Color& third = scheme[2];
    const auto onPanel = [](const std::string& what, double needed, const Color& color) {
        return Pair{what, needed, contrastRatio(color, card)};
    };
    const Pair toast{"text of a toast (first on grey)", forText,
                     contrastRatio(first, over(MessageView::boxColor, card))};
    return {onPanel("text of the rows (first)", forText, first),
            onPanel("caption and sign of a selected toggle (second)", forText, second),
            onPanel("caption and sign of other buttons (third)", forText, third),
            onPanel("frame and glyph that are on (second)", forDrawings, second),
            onPanel("frame and glyph that are off or disabled (third)", forDrawings, third),
            onPanel("focus ring (first)", forDrawings, first),
            toast};
}

std::string tables() {
    std::string page;
    for (int id = 0; id < colorSchemeCount; ++id) {
        page += fmt::format("\n## Scheme {}{}\n\n", id, id == defaultColorScheme ? " (the default)" : "");
        page += "| what | needed | on the card | |\n|---|---|---|---|\n";
        for (const Pair& pair : pairsOf(id)) {
            page += fmt::format("| {} | {:.1f} | {:.2f} | {} |\n", pair.what, pair.needed, pair.found,
                                pair.fails() ? "fails" : "");
        }
    }
    return page;
}

std::string failures() {
    std::string list;
    for (int id = 0; id < colorSchemeCount; ++id) {
        for (const Pair& pair : pairsOf(id)) {
            if (!pair.fails()) continue;
            list += fmt::format("- scheme {}, {}: {:.2f}, where {:.1f} is needed\n", id, pair.what, pair.found,
                                pair.needed);
        }
    }
    return list.empty() ? "None.\n" : list;
}

std::string page() {
    return "# Contrast of the colour schemes\n\n"
           "Measured by the formula of the Web Content Accessibility Guidelines 2.1, which ask for 4.5 for letters of\n"
           "ordinary size and 3.0 for drawings. The widget stands on a dark, opaque card. What is on and what is off\n"
           "differ in shape too, never in colour alone. The panel draws the letters of a toast in white where those "
           "of\n"
           "the scheme have too little contrast.\n\n"
           "## Pairs that fail\n\n" +
           failures() + tables();
}

TEST(Contrast, IsThatOfTheGuidelines) {
    const Color black{0.0, 0.0, 0.0, 1.0};
    const Color white{1.0, 1.0, 1.0, 1.0};
    const double grey119 = 119.0 / 255.0;
    EXPECT_DOUBLE_EQ(21.0, contrastRatio(black, white));
    EXPECT_DOUBLE_EQ(1.0, contrastRatio(white, white));
    EXPECT_NEAR(4.48, contrastRatio({grey119, grey119, grey119, 1.0}, white), 0.005);  // the well-known #777 on white
    EXPECT_NEAR(4.00, contrastRatio({1.0, 0.0, 0.0, 1.0}, white), 0.005);
}

TEST(Contrast, OfATranslucentColorIsThatOfTheMixture) {
    const Color half = over({1.0, 1.0, 1.0, 0.5}, {0.0, 0.0, 0.0, 1.0});
    EXPECT_EQ((Color{0.5, 0.5, 0.5, 1.0}), half);
}

TEST(Contrast, OfTheRowsIsEnoughInEveryScheme) {
    for (int id = 0; id < colorSchemeCount; ++id) {
        const std::vector<Pair> pairs = pairsOf(id);
        EXPECT_FALSE(pairs.front().fails()) << "scheme " << id;
        EXPECT_FALSE(pairs[4].fails()) << "scheme " << id;
    }
}

TEST(Contrast, IsWrittenDown) {
    const std::string path = test::sourceFile("docs/contrast.md");
    if (qEnvironmentVariableIsSet("QUODE_WRITE_PAGES")) std::ofstream(path) << page();
    std::ifstream file(path);
    const std::string written{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(page(), written);
}

}  // namespace
}  // namespace quode::test
