// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/SlimBarStyle.h"

#include <QPainter>
#include <QStyleOptionSlider>
#include <algorithm>

namespace quode::host {
namespace {

constexpr int shortestHandle = 24;
constexpr QColor handleColor{0x76, 0x78, 0x7e};

const QStyleOptionSlider* scrollBarOf(QStyle::ComplexControl control, const QStyleOptionComplex* option) {
    return control == QStyle::CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
}

QRect handleOf(const QStyleOptionSlider& bar) {
    const int length = bar.rect.height();
    const int range = bar.maximum - bar.minimum;
    const auto share = static_cast<int>(qint64{length} * bar.pageStep / std::max(range + bar.pageStep, 1));
    const int handle = range == 0 ? length : std::clamp(share, std::min(shortestHandle, length), length);
    const int top =
        QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - handle, bar.upsideDown);
    return {bar.rect.left(), bar.rect.top() + top, bar.rect.width(), handle};
}

}  // namespace

int SlimBarStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    if (metric == PM_ScrollBarExtent) return width;
    return metric == PM_ScrollBarSliderMin ? shortestHandle : QProxyStyle::pixelMetric(metric, option, widget);
}

// The whole bar is the groove, and there are no buttons at its ends.
QRect SlimBarStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                   const QWidget* widget) const {
    const QStyleOptionSlider* const bar = scrollBarOf(control, option);
    if (bar == nullptr) return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect handle = handleOf(*bar);
    switch (part) {
        case SC_ScrollBarGroove:
            return bar->rect;
        case SC_ScrollBarSlider:
            return handle;
        case SC_ScrollBarSubPage:
            return {bar->rect.topLeft(), QPoint(bar->rect.right(), handle.top() - 1)};
        case SC_ScrollBarAddPage:
            return {QPoint(bar->rect.left(), handle.bottom() + 1), bar->rect.bottomRight()};
        default:
            return {};
    }
}

void SlimBarStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    const QStyleOptionSlider* const bar = scrollBarOf(control, option);
    if (bar == nullptr) return QProxyStyle::drawComplexControl(control, option, painter, widget);
    painter->fillRect(bar->rect, bar->palette.window());
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(handleColor);
    painter->drawRoundedRect(handleOf(*bar), width / 2.0, width / 2.0);
}

}  // namespace quode::host
