// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/ButtonRow.h"

#include <QStyle>

namespace quode::window {
namespace {

constexpr int gap = 4;

}  // namespace

void ButtonRow::add(QWidget* button) {
    buttons_.push_back(button);
    updateGeometry();
}

QSize ButtonRow::largest() const {
    QSize size;
    for (const QWidget* const each : buttons_) size = size.expandedTo(each->minimumSize());
    return size;
}

QSize ButtonRow::sizeOf(int columns) const {
    const int rows = (count() + columns - 1) / std::max(1, columns);
    return {columns * (largest().width() + gap) - gap, rows * (largest().height() + gap) - gap};
}

int ButtonRow::columnsIn(int width) const {
    return sizeOf(count()).width() <= width ? count() : columnsOfTwoRows();
}

QSize ButtonRow::sizeHint() const {
    return sizeOf(count());
}

QSize ButtonRow::minimumSizeHint() const {
    return {sizeOf(columnsOfTwoRows()).width(), largest().height()};
}

int ButtonRow::heightForWidth(int width) const {
    return sizeOf(columnsIn(width)).height();
}

void ButtonRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int columns = std::max(1, columnsIn(width())), height = largest().height();
    for (int at = 0; at < count(); ++at) {
        const int column = at % columns;
        // Shares of the whole width, so that no rounding adds up.
        const int left = column * (width() + gap) / columns, right = (column + 1) * (width() + gap) / columns - gap;
        const QRect place(left, at / columns * (height + gap), right - left, height);
        buttons_[std::size_t(at)]->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    }
}

}  // namespace quode::window
