// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Small helpers for the panel's own controls.
#pragma once

#include <QColor>
#include <QString>

class QLabel;
class QWidget;

namespace quode::host {

/// The size of the panel's texts. Reading a font takes time for each of its sizes.
inline constexpr int textPixels = 12;

/// A label whose text is plain, wraps between words and cannot be selected: it belongs to the panel's surface.
QLabel* newTextLabel(QWidget* parent, int pixelSize = textPixels, bool isBold = false);

void setTextColor(QLabel& label, const QColor& color);

}  // namespace quode::host
