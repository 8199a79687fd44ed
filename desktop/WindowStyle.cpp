// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/WindowStyle.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

#include "desktop/theme.h"

namespace quode {
namespace {

constexpr double radius = 6.0, checkRadius = 4.0;
constexpr int lowestControl = 34, indicatorSide = 18, textMargin = 5;  // points

const QColor& color(const QStyleOption& option, QPalette::ColorRole role) {
    return option.palette.color(role);
}

bool has(const QStyleOption& option, QStyle::StateFlag state) {
    return option.state.testFlag(state);
}

QRectF inside(const QRect& rect, double by) {
    return QRectF(rect).adjusted(by, by, -by, -by);
}

// A control that has the keyboard has a thicker edge in the colour of what is chosen.
QPen edge(const QStyleOption& option) {
    const bool isFocused = has(option, QStyle::State_HasFocus);
    if (isFocused) return QPen(color(option, QPalette::Link), 2.0);
    return QPen(color(option, has(option, QStyle::State_Enabled) ? QPalette::Dark : QPalette::Mid), 1.0);
}

// A flat button that is pressed in, such as that of the details, shows its state by its sign.
bool isChosen(const QStyleOption& option) {
    return has(option, QStyle::State_On) && !has(option, QStyle::State_AutoRaise);
}

void drawButton(const QStyleOption& option, QPainter& painter) {
    QColor ground = color(option, isChosen(option) ? QPalette::Highlight : QPalette::Button);
    const bool isOver = has(option, QStyle::State_MouseOver) && has(option, QStyle::State_Enabled);
    if (has(option, QStyle::State_Sunken)) {
        ground = ground.darker(115);
    } else if (isOver) {
        ground = ground.lighter(106);
    }
    painter.setBrush(ground);
    painter.setPen(has(option, QStyle::State_HasFocus) ? edge(option) : QPen(Qt::NoPen));
    painter.drawRoundedRect(inside(option.rect, 1.0), radius, radius);
}

void drawField(const QStyleOption& option, QPainter& painter, const QBrush& ground) {
    painter.setBrush(ground);
    painter.setPen(edge(option));
    painter.drawRoundedRect(inside(option.rect, 1.0), radius, radius);
}

void drawIndicator(const QStyleOption& option, QPainter& painter, bool isRound) {
    const bool isOn = has(option, QStyle::State_On), isEnabled = has(option, QStyle::State_Enabled);
    const QRectF area = inside(option.rect, 1.5);
    const double corner = isRound ? area.height() / 2 : checkRadius;
    painter.setBrush(color(option, isOn && isEnabled ? QPalette::Highlight : QPalette::Base));
    painter.setPen(edge(option));
    painter.drawRoundedRect(area, corner, corner);
    if (!isOn) return;
    const QColor sign = color(option, isEnabled ? QPalette::HighlightedText : QPalette::Dark);
    if (isRound) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(sign);
        painter.drawEllipse(area.center(), area.width() * 0.22, area.width() * 0.22);
        return;
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(sign, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) { return area.topLeft() + QPointF(area.width() * x, area.height() * y); };
    painter.drawPolyline(QPolygonF{at(0.22, 0.53), at(0.42, 0.72), at(0.78, 0.30)});
}

}  // namespace

WindowStyle::WindowStyle() : QProxyStyle("Fusion") {}

void WindowStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QAbstractSpinBox*>(widget) == nullptr && qobject_cast<QComboBox*>(widget) == nullptr) return;
    if (widget->focusPolicy() == Qt::WheelFocus) widget->setFocusPolicy(Qt::StrongFocus);
    widget->installEventFilter(this);
}

bool WindowStyle::eventFilter(QObject* object, QEvent* event) {
    const bool isPassedOn = event->type() == QEvent::Wheel && !qobject_cast<QWidget*>(object)->hasFocus();
    if (isPassedOn) event->ignore();
    return isPassedOn || QProxyStyle::eventFilter(object, event);
}

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    switch (element) {
        case PE_PanelButtonCommand:
            drawButton(*option, *painter);
            break;
        case PE_PanelButtonTool:
            // A flat button is seen when it is used.
            if (!has(*option, State_AutoRaise) ||
                (option->state & (State_On | State_Sunken | State_MouseOver | State_HasFocus)) != 0) {
                drawButton(*option, *painter);
            }
            break;
        case PE_IndicatorCheckBox:
            drawIndicator(*option, *painter, false);
            break;
        case PE_IndicatorRadioButton:
            drawIndicator(*option, *painter, true);
            break;
        case PE_PanelLineEdit:
            if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option); frame->lineWidth > 0) {
                drawField(*option, *painter, option->palette.base());
            }
            break;
        case PE_FrameFocusRect:  // edges show what has the keyboard
            break;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    painter->restore();
}

void WindowStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto* const button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    if (element != CE_ToolButtonLabel || button == nullptr || !isChosen(*button)) {
        return QProxyStyle::drawControl(element, option, painter, widget);
    }
    QStyleOptionToolButton chosen = *button;
    chosen.palette.setColor(QPalette::ButtonText, color(*button, QPalette::HighlightedText));
    QProxyStyle::drawControl(element, &chosen, painter, widget);
}

void WindowStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                     const QWidget* widget) const {
    const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const bool isField = control == CC_SpinBox || (box != nullptr && box->editable);
    if (!isField) return QProxyStyle::drawComplexControl(control, option, painter, widget);
    // The edge replaces that of Fusion, whose corners would stick out.
    QPainterPath outline;
    outline.addRoundedRect(inside(option->rect, 1.0), radius, radius);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setClipPath(outline);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    painter->setClipping(false);
    drawField(*option, *painter, Qt::NoBrush);
    painter->restore();
}

QSize WindowStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const {
    const QSize wanted = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
        case CT_PushButton:
            return (wanted + QSize(8, 0)).expandedTo({0, lowestControl});
        case CT_ComboBox:
        case CT_LineEdit:
        case CT_SpinBox:
            return (wanted + QSize(2 * textMargin, 0)).expandedTo({0, lowestControl});
        default:
            return wanted;
    }
}

QRect WindowStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    return element == SE_LineEditContents ? rect.adjusted(textMargin, 0, -textMargin, 0) : rect;
}

QRect WindowStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                  const QWidget* widget) const {
    const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const bool isChoice = control == CC_ComboBox && part == SC_ComboBoxEditField && box != nullptr && !box->editable;
    return isChoice ? rect.adjusted(textMargin, 0, -textMargin, 0) : rect;
}

int WindowStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return indicatorSide;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

void wearTheme(bool isDark) {
    if (qobject_cast<WindowStyle*>(QApplication::style()) == nullptr) QApplication::setStyle(new WindowStyle);
    QApplication::setPalette(windowPalette(isDark));
}

}  // namespace quode
