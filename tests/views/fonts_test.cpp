// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/fonts.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>
#include <algorithm>

namespace quode::test {
namespace {

const QString standIn("DejaVu Sans");

TEST(FontNamed, IsTheFontOfThatName) {
    QStringList families = QFontDatabase::families();
    families.removeAll(standIn);
    const auto found =
        std::ranges::find_if(families, [](const QString& family) { return QFontDatabase::isSmoothlyScalable(family); });
    if (found == families.end()) GTEST_SKIP() << "There is no other font.";
    EXPECT_EQ(QFontInfo(fontNamed(found->toStdString(), 15)).family(), *found);
}

TEST(FontNamed, IsDejaVuSansWhereTheDeviceLacksIt) {
    if (!QFontDatabase::hasFamily(standIn)) GTEST_SKIP() << "There is no DejaVu Sans.";
    for (int i = 0; i < 2; ++i) EXPECT_EQ(QFontInfo(fontNamed("A font that nobody made", 15)).family(), standIn);
}

TEST(FontNamed, HasTheSizeInPixels) {
    EXPECT_EQ(fontNamed("Verdana", 17).pixelSize(), 17);
}

TEST(FontNamed, TakesOtherLettersFromOtherFonts) {
    const QFont font = fontNamed("A font that nobody made", 15);
    EXPECT_TRUE(QFontMetrics(font).inFontUcs4(U'A'));
    EXPECT_GT(QFontMetrics(font).horizontalAdvance("日"), 0);
}

}  // namespace
}  // namespace quode::test
