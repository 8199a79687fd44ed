// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/widgets.h"

#include <QLabel>

namespace quode::host {

QLabel* newTextLabel(QWidget* parent, int pixelSize, bool isBold) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    font.setBold(isBold);
    label->setFont(font);
    return label;
}

void setTextColor(QLabel& label, const QColor& color) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, color);
    label.setPalette(palette);
}

}  // namespace quode::host
