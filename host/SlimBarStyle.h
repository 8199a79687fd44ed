// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace quode::host {

/// The style of a vertical scroll bar that is only its handle: narrow, with round ends, on the ground of what it scrolls.
class SlimBarStyle : public QProxyStyle {
  public:
    static constexpr int width = 6;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

}  // namespace quode::host
