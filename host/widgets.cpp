// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/widgets.h"

#include <QLabel>

namespace quode::host {
namespace {

// The panel gives a text its width. A QLabel would lay its text out a few times to find one.
class FlowingLabel : public QLabel {
  public:
    explicit FlowingLabel(QWidget* parent) : QLabel(parent) { setWordWrap(true); }

    QSize minimumSizeHint() const override { return {0, fontMetrics().lineSpacing()}; }
    QSize sizeHint() const override { return minimumSizeHint(); }
};

}  // namespace

QLabel* newTextLabel(QWidget* parent, int pixelSize, bool isBold) {
    auto* const label = new FlowingLabel(parent);
    label->setTextFormat(Qt::PlainText);
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
