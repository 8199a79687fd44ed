// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/CompassCloseButton.h"

#include <QKeyEvent>
#include <QLineF>
#include <QPainter>

namespace quode {

CompassCloseButton::CompassCloseButton(const CompassInk& ink, QWidget* parent) : QAbstractButton(parent), ink_(ink) {
    setFixedSize(side, side);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void CompassCloseButton::setAlpha(double alpha) {
    alpha_ = alpha;
    update();
}

void CompassCloseButton::paintEvent(QPaintEvent*) {
    constexpr double discRadius = side / 2.0 - 3.0, arm = 6.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(alpha_);
    painter.translate(side / 2.0, side / 2.0);
    painter.setBrush(isDown() ? ink_.text : ink_.ground);
    painter.setPen(hasFocus() ? QPen(ink_.text, 3.0) : QPen(Qt::NoPen));
    painter.drawEllipse(QPointF(0.0, 0.0), discRadius, discRadius);
    painter.setPen(QPen(isDown() ? ink_.ground : ink_.text, 2.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QLineF(-arm, -arm, arm, arm));
    painter.drawLine(QLineF(-arm, arm, arm, -arm));
}

void CompassCloseButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            event->ignore();  // these keys turn the dial, wherever the focus is
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            click();
            return;
        default:
            QAbstractButton::keyPressEvent(event);
    }
}

bool CompassCloseButton::hitButton(const QPoint& position) const {
    return QLineF(position, rect().center()).length() <= side / 2.0;
}

}  // namespace quode
