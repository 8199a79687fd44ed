// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/widgets.h"

#include <QLabel>
#include <QPainter>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>

namespace quode::host {
namespace {

constexpr double lineSpacing = 1.35;  // times the size of the font; more where the letters need more

// The panel gives a text its width. A QLabel would lay its text out a few times to find one, and its lines are as close as
// the font allows.
class FlowingLabel : public QLabel {
  public:
    explicit FlowingLabel(QWidget* parent) : QLabel(parent) {
        setWordWrap(true);
        flowed_.setCacheEnabled(true);
    }

    QSize minimumSizeHint() const override { return {0, qCeil(lineSpacing * font().pixelSize())}; }
    QSize sizeHint() const override { return minimumSizeHint(); }

    int heightForWidth(int width) const override {
        const QMargins around = contentsMargins();
        return flow(width - around.left() - around.right()) + around.top() + around.bottom();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const QRect area = contentsRect();
        const int height = flow(area.width());
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        flowed_.draw(&painter, area.topLeft() + QPoint(0, (area.height() - height) / 2));
    }

  private:
    // Breaks the text into lines; the result is their height.
    int flow(int width) const {
        takeText();
        double height = 0.0;
        flowed_.beginLayout();
        for (QTextLine line = flowed_.createLine(); line.isValid(); line = flowed_.createLine()) {
            line.setLineWidth(width);
            const double spacing = std::max(line.height(), lineSpacing * font().pixelSize());
            line.setPosition({0.0, height + (spacing - line.height()) / 2.0});
            height += spacing;
        }
        flowed_.endLayout();
        return qCeil(height);
    }

    void takeText() const {
        const bool isRightToLeft = text().isRightToLeft();
        QTextOption option(isRightToLeft ? Qt::AlignRight : Qt::AlignLeft);
        option.setTextDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        flowed_.setTextOption(option);
        const QString lines = text().replace('\n', QChar::LineSeparator);
        if (flowed_.text() == lines && flowed_.font() == font()) return;
        flowed_.setFont(font());
        flowed_.setText(lines);
    }

    mutable QTextLayout flowed_;
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
