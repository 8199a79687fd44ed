// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/placement.h"

#include <algorithm>

namespace quode::host {
namespace {

constexpr int margin = 8;  // between the popover and the edges of the screen
constexpr int gap = 8;     // between the popover and the pointer
constexpr QSize windowFrame{16, 48};

}  // namespace

QRect popoverFrame(QSize wanted, QPoint pointer, const QRect& available) {
    const QRect inside = available.adjusted(margin, margin, -margin, -margin);
    const QSize size = wanted.boundedTo(inside.size()).expandedTo({1, 1});
    const int right = inside.left() + inside.width() - size.width();
    const int bottom = inside.top() + inside.height() - size.height();
    const int left = pointer.x() - size.width() / 2;
    const bool isAbove = pointer.y() > available.center().y();
    const int top = isAbove ? pointer.y() - gap - size.height() : pointer.y() + gap;
    return {{std::max(inside.left(), std::min(left, right)), std::max(inside.top(), std::min(top, bottom))}, size};
}

QSize largestWindow(const QRect& available) {
    return (available.size() - windowFrame).expandedTo({1, 1});
}

}  // namespace quode::host
