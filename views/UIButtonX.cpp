// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/UIButtonX.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTouchEvent>
#include <exception>

#include "common/GlobalFuncs.h"
#include "views/fonts.h"
#include "views/glyphs.h"
#include "views/qt_conversions.h"

namespace quode {
namespace {

constexpr double signScale = 1.3;

Rect inset(const Rect& rect, double distance) {
    return {rect.x + distance, rect.y + distance, rect.width - 2.0 * distance, rect.height - 2.0 * distance};
}

bool contains(const Rect& rect, Point point) {
    return point.x >= rect.x && point.x < rect.x + rect.width && point.y >= rect.y && point.y < rect.y + rect.height;
}

Point pointOf(QPointF point) {
    return {point.x(), point.y()};
}

bool isTapKey(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select;
}

void announce(QWidget& button, QAccessible::State changed) {
    QAccessibleStateChangeEvent event(&button, changed);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

UIButtonX::UIButtonX(const Rect& frame, QWidget* parent)
    : View(frame, parent), globalFuncs_(GlobalFuncs::globalFuncs()), glbSettings_(globalFuncs_.getSettings()) {
    initialize();
}

void UIButtonX::initialize() {
    selectedColor_ = globalFuncs_.secondColor();
    enabledColor_ = globalFuncs_.secondColor();
    setAutoresizingMask(flexibleLeftMargin | flexibleWidth | flexibleRightMargin);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);

    auto caption = std::make_unique<Label>(bounds());
    caption->setFont(glbSettings_.fontName, glbSettings_.fontSize);
    caption->setTextAlign(alignCenter);
    caption->setTextColor(globalFuncs_.thirdColor());
    caption->setAutoresizingMask(flexibleLeftMargin | flexibleWidth | flexibleRightMargin);
    setText(std::move(caption));
}

void UIButtonX::setText(std::unique_ptr<Label> text) {
    delete text_;
    text_ = addSubview(*this, std::move(text));
}

std::string UIButtonX::spokenName() const {
    return spokenName_ ? spokenName_() : text_->text();
}

// --- state ---------------------------------------------------------------------------------------------------------

void UIButtonX::setButtonType(std::int32_t type) {
    buttonType_ = type;
    update();
}

void UIButtonX::setButtonShape(std::int32_t shape) {
    const bool hadSign = !signOfShape(buttonShape_).empty();
    buttonShape_ = shape;
    if (!signOfShape(shape).empty()) {
        showSign();
    } else if (hadSign) {
        clearSign();
    }
    update();
}

void UIButtonX::showSign() {
    text_->setFont(signFont, glbSettings_.fontSize * signScale);
    text_->setText(std::string(signOfShape(buttonShape_)));
}

void UIButtonX::clearSign() {
    text_->setFont(glbSettings_.fontName, glbSettings_.fontSize);
    text_->setText({});
}

void UIButtonX::setSelectable(bool value) {
    selectable_ = value;
    update();
}

void UIButtonX::setSelected(bool selected) {
    if (!selectable_) return;
    const bool changed = selected_ != selected;
    selected_ = selected;
    if (selected_) isSelecting_ = false;
    text_->setTextColor(selected_ ? selectedColor_ : globalFuncs_.thirdColor());
    if (!changed) return;
    update();
    QAccessible::State state;
    state.checked = true;
    announce(*this, state);
}

void UIButtonX::setSelectedColor(const Color& color) {
    selectedColor_ = color;
    update();
}

void UIButtonX::setEnabledColor(const Color& color) {
    enabledColor_ = color;
    update();
}

void UIButtonX::setIsShadow(bool value) {
    isShadow_ = value;
    update();
}

void UIButtonX::setFrame(const Rect& frame) {
    View::setFrame(frame);
    if (text_ != nullptr) text_->setFrame({0.0, 0.0, frame.width, frame.height - 2.0});
}

void UIButtonX::changeEvent(QEvent* event) {
    View::changeEvent(event);
    if (event->type() != QEvent::EnabledChange) return;
    if (!isEnabled()) touchesCancelled();
    update();
}

// --- touches -------------------------------------------------------------------------------------------------------

void UIButtonX::setSelecting(bool value) {
    isSelecting_ = value;
    update();
}

void UIButtonX::touchesBegan(Point location) {
    View::touchesBegan(location);
    isTouched_ = true;
    setSelecting(true);
}

void UIButtonX::touchesMoved(Point location) {
    View::touchesMoved(location);
    if (isTouched_) setSelecting(contains(bounds(), location));
}

void UIButtonX::touchesEnded(Point location) {
    if (!isTouched_) return;
    isTouched_ = false;
    const QPointer<UIButtonX> self(this);
    if (contains(bounds(), location)) tap();
    if (!self) return;  // the tap may have closed the view that holds the button
    setSelecting(false);
    View::touchesMoved(location);  // the base sees the end as a move, and so does not act on it
}

void UIButtonX::touchesCancelled() {
    View::touchesCancelled();
    isTouched_ = false;
    setSelecting(false);
}

void UIButtonX::tap() {
    if (!isEnabled()) return;
    if (selectable_) setSelected(!selected_);
    if (delegate_ != nullptr) delegate_->delegateUIButtonXTapped(*this, selected_);
}

bool UIButtonX::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
            event->accept();
            if (isEnabled()) touchEvent(static_cast<const QTouchEvent&>(*event));
            return true;
        case QEvent::WindowDeactivate:
        case QEvent::UngrabMouse:
            touchesCancelled();
            break;
        default:
            break;
    }
    return View::event(event);
}

// The button follows one finger and ignores others.
void UIButtonX::touchEvent(const QTouchEvent& event) {
    if (event.type() == QEvent::TouchCancel || event.pointCount() == 0) {
        touchesCancelled();
        return;
    }
    const Point location = pointOf(event.points().first().position());
    if (event.type() == QEvent::TouchBegin) {
        setFocusRing(false);
        touchesBegan(location);
    } else if (event.type() == QEvent::TouchUpdate) {
        touchesMoved(location);
    } else {
        touchesEnded(location);
    }
}

void UIButtonX::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    touchesBegan(pointOf(event->position()));
}

void UIButtonX::mouseMoveEvent(QMouseEvent* event) {
    if ((event->buttons() & Qt::LeftButton) != 0) touchesMoved(pointOf(event->position()));
}

void UIButtonX::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    touchesEnded(pointOf(event->position()));
}

// --- keyboard ------------------------------------------------------------------------------------------------------

void UIButtonX::keyPressEvent(QKeyEvent* event) {
    const bool again = event->isAutoRepeat();
    if (event->key() == Qt::Key_Space) {
        setFocusRing(true);
        if (!again) touchesBegan({bounds().width * 0.5, bounds().height * 0.5});
    } else if (isTapKey(event->key())) {
        setFocusRing(true);
        if (!again) tap();
    } else if (event->key() == Qt::Key_Escape && isTouched_) {
        touchesCancelled();
    } else {
        event->ignore();
    }
}

void UIButtonX::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space) {
        event->ignore();
    } else if (!event->isAutoRepeat()) {
        touchesEnded({bounds().width * 0.5, bounds().height * 0.5});
    }
}

void UIButtonX::setFocusRing(bool value) {
    hasFocusRing_ = value;
    update();
}

void UIButtonX::focusInEvent(QFocusEvent* event) {
    // Mouse users need no focus ring.
    const bool byWindow = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!byWindow) setFocusRing(event->reason() != Qt::MouseFocusReason);
    update();
}

void UIButtonX::focusOutEvent(QFocusEvent*) {
    touchesCancelled();
}

void UIButtonX::hideEvent(QHideEvent* event) {
    touchesCancelled();
    View::hideEvent(event);
}

// --- drawing -------------------------------------------------------------------------------------------------------

QPainterPath UIButtonX::createArcPath() {
    QPainterPath path;
    const QRectF circle(5.0, 5.0, 10.0, 10.0);
    path.arcMoveTo(circle, 0.0);
    path.arcTo(circle, 0.0, -135.0);
    return path;
}

Color UIButtonX::frameColor() const {
    if (selectable_) return selected_ ? selectedColor_ : globalFuncs_.thirdColor();
    return isEnabled() ? enabledColor_ : globalFuncs_.thirdColor();
}

Color UIButtonX::glyphColor() const {
    const bool bright = selectable_ ? selected_ : isEnabled();
    return bright ? globalFuncs_.secondColor() : globalFuncs_.thirdColor();
}

void UIButtonX::paintEvent(QPaintEvent*) {
    try {
        QPainter painter(this);
        drawRect(painter);
    } catch (const std::exception& error) {
        globalFuncs_.NSLogToFile("Error in UIButtonX -> drawRect");
        globalFuncs_.NSLogToFile(error.what());
    }
}

void UIButtonX::drawRect(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    if (isSelecting_) drawPressed(painter);
    if (buttonType_ != 0) drawFrame(painter);
    if (buttonShape_ != 0) drawGlyph(painter);
    if (hasFocusRing_ && hasFocus()) drawFocusRing(painter);
}

// A wash over the area of the frame; rounded without a frame.
void UIButtonX::drawPressed(QPainter& painter) const {
    constexpr double washAlpha = 0.3;
    Color wash = frameColor();
    wash.alpha = washAlpha;
    painter.fillPath(framePath(buttonType_ == 0 ? 3 : buttonType_, inset(bounds(), 1.0)), toQt(wash));
}

void UIButtonX::drawFrame(QPainter& painter) const {
    stroke(painter, framePath(buttonType_, inset(bounds(), 1.0)), QPen(toQt(frameColor()), 1.0), false);
}

void UIButtonX::drawGlyph(QPainter& painter) const {
    const double defaultWidth = globalFuncs_.getZoomed() ? 1.3 : 1.0;
    for (const GlyphPart& part : glyphParts(buttonShape_, inset(bounds(), 6.0), defaultWidth)) {
        const bool round = part.cap == Qt::RoundCap;
        const auto style = part.width > 0.0 ? Qt::SolidLine : Qt::NoPen;
        const QPen pen(toQt(glyphColor()), part.width, style, part.cap, round ? Qt::RoundJoin : Qt::MiterJoin);
        stroke(painter, part.path, pen, part.filled);
    }
}

void UIButtonX::drawFocusRing(QPainter& painter) const {
    constexpr double ringInset = 3.0;
    const QPainterPath ring = framePath(buttonType_ == 0 ? 3 : buttonType_, inset(bounds(), ringInset));
    painter.strokePath(ring, QPen(toQt(globalFuncs_.firstColor()), 1.6));
}

void UIButtonX::stroke(QPainter& painter, const QPainterPath& path, const QPen& pen, bool filled) const {
    const auto draw = [&](const QColor& color) {
        QPen colored = pen;
        colored.setColor(color);
        painter.setPen(colored);
        painter.setBrush(filled ? QBrush(color) : QBrush());
        painter.drawPath(path);
    };
    if (isShadow_) {
        painter.translate(1.0, 1.0);
        draw(Qt::black);
        painter.translate(-1.0, -1.0);
    }
    draw(pen.color());
}

}  // namespace quode
