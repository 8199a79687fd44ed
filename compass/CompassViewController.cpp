// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/CompassViewController.h"

#include <QResizeEvent>

#include "compass/CompassView.h"

namespace quode {
namespace {

CompassView* topCompass(const QWidget& view) {
    const QObjectList& children = view.children();
    return children.isEmpty() ? nullptr : qobject_cast<CompassView*>(children.back());
}

}  // namespace

CompassViewController::CompassViewController(QWidget* parent) : QWidget(parent) {}

void CompassViewController::willAnimateRotationToInterfaceOrientation(DeviceOrientation, double) {
    CompassView* compass = topCompass(*this);
    if (compass == nullptr) return;
    compass->setFrame({});
    compass->updateDisplay();
}

void CompassViewController::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (CompassView* compass = topCompass(*this)) compass->setGeometry(rect());
}

}  // namespace quode
