// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Taps, drags and keys of the compass.
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <cmath>
#include <numbers>

#include "compass/CompassView.h"

namespace quode {
namespace {

constexpr double keyStep = 1.0, largeKeyStep = 10.0;  // degrees

// Closer to the middle, a small move would be a large turn.
constexpr double deadRadius = 12.0;

}  // namespace

// The direction from the dial's middle, degrees clockwise from the top; nothing near the middle.
std::optional<double> CompassView::directionOf(QPointF position) const {
    const QPointF arm = position - dial_->center();
    if (std::hypot(arm.x(), arm.y()) < deadRadius) return std::nullopt;
    return std::atan2(arm.x(), -arm.y()) * 180.0 / std::numbers::pi;
}

void CompassView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || isDestroyed_) return;
    press_ = event->position();
    isDragged_ = false;
    dragDirection_ = directionOf(*press_);
}

void CompassView::mouseMoveEvent(QMouseEvent* event) {
    if (!press_ || isDestroyed_) return;
    const QPointF way = event->position() - *press_;
    isDragged_ = isDragged_ || std::hypot(way.x(), way.y()) >= QApplication::startDragDistance();
    if (!isDragged_) return;
    const auto direction = directionOf(event->position());
    if (direction && dragDirection_) turnByHand(std::remainder(*direction - *dragDirection_, 360.0));
    dragDirection_ = direction;
}

void CompassView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !press_) return;
    press_.reset();
    if (!isDragged_) tapActionCompassTapped();
}

void CompassView::keyPressEvent(QKeyEvent* event) {
    const double step = event->modifiers().testFlag(Qt::ShiftModifier) ? largeKeyStep : keyStep;
    switch (event->key()) {
        case Qt::Key_Escape:
        case Qt::Key_Back:
            return destroy();
        case Qt::Key_Right:
        case Qt::Key_Up:
            return turnByHand(step);
        case Qt::Key_Left:
        case Qt::Key_Down:
            return turnByHand(-step);
        case Qt::Key_Home:
            return setManualHeading(0.0);
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace quode
