// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The colours of the panel's own parts, around the widget.
#pragma once

#include <QColor>
#include <QPalette>

namespace quode {

/// The colours of one theme. The card behind the widget is dark in both: the widget's colours are made for that.
struct Theme {
    QColor ground;     ///< of the panel
    QColor text;       ///< the coming prayer
    QColor quietText;  ///< dates and footnotes
    QColor notice;     ///< a message that asks for something
    QColor edge;       ///< around the panel
    QColor hover;      ///< behind a button that the pointer is on
};

/// Behind the widget, and opaque, so that its colours have the contrast that they were measured with.
inline constexpr QColor cardColor(14, 14, 16);

const Theme& themeOf(bool isDark);

/// The palette of the panel and of what belongs to it.
QPalette paletteOf(const Theme& theme);

/// The palette of ordinary windows and dialogs. `PlaceholderText` is that of remarks.
QPalette windowPalette(bool isDark);

/// Whether the palette of the desktop is a dark one.
bool isDarkPalette(const QPalette& palette);

}  // namespace quode
