// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/CompassViewOverlayWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QResizeEvent>
#include <QScreen>

namespace quode {
namespace {

// How long a screen takes to turn, in seconds.
constexpr double turnDuration = 0.3;

}  // namespace

CompassViewOverlayWindow::CompassViewOverlayWindow(ScreenKeeper& screenKeeper)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), screenKeeper_(screenKeeper) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    root_ = new CompassViewController(this);
}

CompassViewOverlayWindow::~CompassViewOverlayWindow() {
    oldKeyWindow_.clear();
}

void CompassViewOverlayWindow::makeKeyAndVisible() {
    screenKeeper_.keepAwake();
    setOldKeyWindow(QApplication::activeWindow());
    setWindowFlag(Qt::WindowStaysOnTopHint);
    cover(oldKeyWindow_ != nullptr ? oldKeyWindow_->screen() : QGuiApplication::primaryScreen());
    showFullScreen();
    activateWindow();
}

void CompassViewOverlayWindow::cover(QScreen* screen) {
    if (screen == nullptr) return setGeometry({});
    setScreen(screen);
    setGeometry(screen->geometry());  // where no window manager does it
    connect(screen, &QScreen::orientationChanged, this, &CompassViewOverlayWindow::onScreenTurned);
    connect(screen, &QScreen::geometryChanged, this, &CompassViewOverlayWindow::onScreenTurned);
}

void CompassViewOverlayWindow::onScreenTurned() {
    setGeometry(screen()->geometry());
    const auto orientation = deviceOrientation(screen()->nativeOrientation(), screen()->orientation());
    root_->willAnimateRotationToInterfaceOrientation(orientation, turnDuration);
}

void CompassViewOverlayWindow::resignKeyWindow() {
    hide();
    if (oldKeyWindow_ != nullptr && oldKeyWindow_->isVisible()) oldKeyWindow_->activateWindow();
}

void CompassViewOverlayWindow::setAlpha(double alpha) {
    alpha_ = alpha;
    Q_EMIT alphaChanged(alpha);
}

void CompassViewOverlayWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // its owner takes it down
    Q_EMIT closeAsked();
}

void CompassViewOverlayWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    root_->setGeometry(rect());
}

}  // namespace quode
