// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A page as a picture looks like the page of the file.
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "printing/pdf.h"

namespace quode::test {
namespace {

using namespace printing;

constexpr int width = 300;

Timetable twoMonths(bool isRightToLeft = false) {
    Timetable table;
    table.title = "Prayer times";
    table.place = "Istanbul";
    table.year = "2026";
    table.language = isRightToLeft ? "ar" : "en";
    table.isRightToLeft = isRightToLeft;
    table.columns = {{Column::Kind::day, "Date"}, {Column::Kind::prayer, "Fajr"}};
    for (const char* const month : {"November 2026", "December 2026"}) {
        Page page{month, "", {}, {}};
        page.rows.push_back({{"1", "05:46"}, "2026-11-01", false, false});
        table.pages.push_back(page);
    }
    table.made = "2026-11-21T04:00:00Z";
    return table;
}

std::uint32_t colorAt(const Picture& picture, int x, int y) {
    return picture.pixels.at(std::size_t(y) * std::size_t(picture.width) + std::size_t(x)) & 0xffffffU;
}

/// Dark pixels in a part of the width, below the band.
std::ptrdiff_t inkBetween(const Picture& picture, int from, int to) {
    std::ptrdiff_t count = 0;
    for (int y = picture.height / 7; y < picture.height; ++y) {
        for (int x = from; x < to; ++x) count += (colorAt(picture, x, y) & 0xffU) < 0x80U ? 1 : 0;
    }
    return count;
}

TEST(PagePicture, HasTheRatioOfThePaper) {
    EXPECT_EQ(pictureOf(twoMonths(), {Paper::a4}, 0, width).height, 424) << "297 / 210";
    EXPECT_EQ(pictureOf(twoMonths(), {Paper::letter}, 0, width).height, 388) << "11 / 8.5";
    const Picture sheet = pictureOf(twoMonths(), {Paper::a4, true}, 0, width);
    EXPECT_EQ(sheet.width, width);
    EXPECT_EQ(sheet.pixels.size(), std::size_t(300 * 424));
}

TEST(PagePicture, HasABandAndTextsOnWhitePaper) {
    const Picture page = pictureOf(twoMonths(), {}, 0, width);
    EXPECT_EQ(colorAt(page, 2, 2), 0xffffffU) << "the margin";
    EXPECT_EQ(colorAt(page, width / 2, 20), 0x0b5d4eU) << "the band";
    const auto isWhite = [](std::uint32_t pixel) { return (pixel & 0xffffffU) == 0xffffffU; };
    EXPECT_GT(std::ranges::count_if(page.pixels, isWhite), width * page.height / 2);
    EXPECT_GT(inkBetween(page, 0, width), 20);
}

TEST(PagePicture, IsThatOfItsPage) {
    EXPECT_EQ(pictureOf(twoMonths(), {}, 1, width).pixels, pictureOf(twoMonths(), {}, 1, width).pixels);
    EXPECT_NE(pictureOf(twoMonths(), {}, 0, width).pixels, pictureOf(twoMonths(), {}, 1, width).pixels);
    EXPECT_EQ(pageCount(twoMonths(), {}), 2U);
    EXPECT_EQ(pageCount(twoMonths(), {Paper::a4, true}), 1U);
    EXPECT_THROW(pictureOf(twoMonths(), {}, 2, width), std::out_of_range);
}

TEST(PagePicture, BeginsAtTheRightInArabic) {
    Timetable table = twoMonths(true);
    table.columns = {{Column::Kind::weekday, "Day"}, {Column::Kind::prayer, ""}};
    for (Page& page : table.pages) page.rows[0].cells = {"Sunday", ""};
    const Picture page = pictureOf(table, {}, 0, width);
    EXPECT_LT(inkBetween(page, 0, width / 3), inkBetween(page, 2 * width / 3, width));
}

}  // namespace
}  // namespace quode::test
