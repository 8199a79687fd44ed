// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Small helpers for the panel's own controls.
#pragma once

#include <QColor>
#include <QString>

class QLabel;
class QWidget;

namespace quode::host {

/// A label whose text is plain, wraps between words and cannot be selected: it belongs to the panel's surface.
QLabel* newTextLabel(QWidget* parent, int pixelSize, bool isBold);

void setTextColor(QLabel& label, const QColor& color);

/// Makes Qt read the list of fonts, which takes a quarter of the time to the first frame: in a thread of its own it is done
/// beside everything else that comes before the first text. The application must exist.
void readListOfFonts();

}  // namespace quode::host
