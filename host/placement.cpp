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

QRect grownFrame(const QRect& present, QSize wanted, const QRect& available) {
    const QRect inside = available.adjusted(margin, margin, -margin, -margin);
    const int width = std::max(1, std::min(wanted.width(), inside.width()));
    const int left = std::max(inside.left(), std::min(present.left(), inside.left() + inside.width() - width));
    const int top = std::max(inside.top(), std::min(present.top(), inside.bottom()));
    const int height = std::max(1, std::min(wanted.height(), inside.bottom() + 1 - top));
    return {left, top, width, height};
}

QSize largestWindow(const QRect& available) {
    return (available.size() - windowFrame).expandedTo({1, 1});
}

}  // namespace quode::host
