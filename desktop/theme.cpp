// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/theme.h"

namespace quode {
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

QPalette windowPalette(bool isDark) {
    const Theme& theme = themeOf(isDark);
    QPalette palette(theme.text, theme.ground);
    const auto set = [&](QPalette::ColorRole role, QColor dark, QColor light) {
        palette.setColor(role, isDark ? dark : light);
    };
    set(QPalette::Base, {44, 44, 48}, Qt::white);
    set(QPalette::AlternateBase, {52, 52, 56}, {241, 240, 239});
    set(QPalette::Button, {58, 58, 63}, {232, 230, 228});
    set(QPalette::Mid, {78, 78, 84}, {204, 202, 199});
    set(QPalette::Dark, {150, 150, 156}, {110, 110, 116});
    set(QPalette::Light, {70, 70, 76}, Qt::white);
    set(QPalette::Shadow, Qt::black, {150, 150, 150});
    set(QPalette::Highlight, {38, 110, 120}, {22, 96, 108});
    palette.setColor(QPalette::HighlightedText, Qt::white);
    set(QPalette::Link, {130, 205, 214}, {10, 84, 96});
    set(QPalette::LinkVisited, {190, 170, 220}, {90, 60, 130});
    set(QPalette::ToolTipBase, {70, 62, 30}, {255, 246, 214});
    set(QPalette::ToolTipText, {250, 244, 224}, {48, 40, 8});
    palette.setColor(QPalette::PlaceholderText, theme.quietText);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(QPalette::Active, role, theme.text);
        palette.setColor(QPalette::Inactive, role, theme.text);
        palette.setColor(QPalette::Disabled, role, isDark ? QColor(130, 130, 136) : QColor(140, 140, 146));
    }
    return palette;
}

bool isDarkPalette(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < darkBelow;
}

}  // namespace quode
