// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/theme.h"

#include <gtest/gtest.h>

#include "views/contrast.h"

namespace quode::test {
namespace {

Color of(const QColor& color) {
    return {color.redF(), color.greenF(), color.blueF(), 1.0};
}

TEST(Theme, HasEnoughContrastForLettersInBothThemes) {
    for (const bool isDark : {false, true}) {
        const Theme& theme = themeOf(isDark);
        for (const QColor& letters : {theme.text, theme.quietText, theme.notice}) {
            EXPECT_GE(contrastRatio(of(letters), of(theme.ground)), 4.5) << isDark << letters.name().toStdString();
        }
    }
}

TEST(Theme, IsThatOfThePalette) {
    EXPECT_TRUE(isDarkPalette(QPalette(Qt::white, QColor(40, 40, 40))));
    EXPECT_FALSE(isDarkPalette(QPalette(Qt::black, QColor(240, 240, 240))));
}

}  // namespace
}  // namespace quode::test
