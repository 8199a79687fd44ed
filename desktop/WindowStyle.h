// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace quode {

/// How the controls of Quode's windows are drawn: flat, with edges that are seen in both themes, and high enough for a finger.
class WindowStyle : public QProxyStyle {
    Q_OBJECT

  public:
    WindowStyle();

    using QProxyStyle::polish;
    /// The wheel scrolls the page: it changes a number or a choice only where that has the keyboard.
    void polish(QWidget* widget) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

/// Gives all windows of the program the palette of a theme, and the style.
void wearTheme(bool isDark);

}  // namespace quode
