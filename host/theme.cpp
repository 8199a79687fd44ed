// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/theme.h"

namespace quode::host {
namespace {

constexpr Theme darkTheme{.ground = QColor(32, 32, 35),
                          .text = QColor(242, 242, 242),
                          .quietText = QColor(184, 184, 190),
                          .notice = QColor(255, 211, 78),
                          .edge = QColor(255, 255, 255, 40),
                          .hover = QColor(255, 255, 255, 36)};

constexpr Theme lightTheme{.ground = QColor(246, 245, 244),
                           .text = QColor(28, 28, 30),
                           .quietText = QColor(84, 84, 90),
                           .notice = QColor(128, 64, 0),
                           .edge = QColor(0, 0, 0, 70),
                           .hover = QColor(0, 0, 0, 26)};

constexpr int darkBelow = 128;  // lightness, of 255

}  // namespace

const Theme& themeOf(bool isDark) {
    return isDark ? darkTheme : lightTheme;
}

QPalette paletteOf(const Theme& theme) {
    QPalette palette(theme.text, theme.ground);
    palette.setColor(QPalette::Button, QColor(118, 120, 126));  // of the scroll bar
    return palette;
}

bool isDarkPalette(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < darkBelow;
}

}  // namespace quode::host
