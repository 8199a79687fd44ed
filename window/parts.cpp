// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/parts.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

namespace quode::window {
namespace {

constexpr double cornerRadius = 10.0;
constexpr int cardMargin = 14;
constexpr QSize switchSize{44, 26};
constexpr double knobMargin = 3.0;

}  // namespace

Card::Card(QWidget* parent) : QFrame(parent), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(cardMargin, cardMargin, cardMargin, cardMargin);
    column_->setSpacing(10);
}

void Card::addLine() {
    auto* const line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setForegroundRole(QPalette::Mid);
    line->setFrameShadow(QFrame::Plain);
    column_->addWidget(line);
}

void Card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}

Switch::Switch(const QString& name, QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
}

QSize Switch::sizeHint() const {
    return switchSize;
}

// The place of the knob shows what is on, not the colour alone; in a language from right to left it is at the left.
void Switch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    const double radius = area.height() / 2;
    const QPalette& colors = palette();
    painter.setPen(
        QPen(hasFocus() ? colors.color(QPalette::WindowText) : colors.color(QPalette::Dark), hasFocus() ? 2.0 : 1.0));
    painter.setBrush(isChecked() ? colors.color(QPalette::Highlight) : colors.color(QPalette::Base));
    painter.drawRoundedRect(area, radius, radius);
    const double side = area.height() - 2 * knobMargin;
    const bool isAtRight = isChecked() != isRightToLeft();
    const double left = isAtRight ? area.right() - knobMargin - side : area.left() + knobMargin;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? colors.color(QPalette::HighlightedText) : colors.color(QPalette::Dark));
    painter.drawEllipse(QRectF(left, area.top() + knobMargin, side, side));
}

// Qt aligns a label by the language of its text: a path or a city in Latin letters would leave the column.
void alignToLayout(QLabel& label) {
    label.setAlignment((label.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter);
}

QLabel* newLabel(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    alignToLayout(*label);
    return label;
}

QLabel* newHeading(const QString& text, QWidget* parent) {
    QLabel* const label = newLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

QLabel* newRemark(const QString& text, QWidget* parent) {
    QLabel* const label = newLabel(text, parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QToolButton* newSignButton(const QString& sign, const QString& name, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setText(sign);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAutoRaise(true);
    const int side = std::max(30, button->fontMetrics().height() + 12);
    button->setMinimumSize(side, side);
    return button;
}

QComboBox* newChoice(const QString& name, QWidget* parent) {
    auto* const box = new QComboBox(parent);
    box->setAccessibleName(name);
    box->setToolTip(name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(12);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->setFocusPolicy(Qt::StrongFocus);
    return box;
}

void choose(QComboBox& box, const QVariant& data) {
    const QSignalBlocker quiet(box);
    box.setCurrentIndex(std::max(0, box.findData(data)));
}

void removeAll(QLayout& layout) {
    while (QLayoutItem* const item = layout.takeAt(0)) {
        if (item->layout() != nullptr) removeAll(*item->layout());
        delete item->widget();
        delete item;
    }
}

void showChecked(QAbstractButton& button, bool isOn) {
    const QSignalBlocker quiet(button);
    button.setChecked(isOn);
}

}  // namespace quode::window
