// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/CompassViewOverlayWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QResizeEvent>
#include <QScreen>
#include <QWindow>

namespace quode {
namespace {

// The duration of a screen's turn, in seconds.
constexpr double turnDuration = 0.3;

Qt::WindowFlags flagsOf(CompassPlace place) {
    return place == CompassPlace::inWindow ? Qt::Dialog : Qt::Window | Qt::FramelessWindowHint;
}

}  // namespace

CompassViewOverlayWindow::CompassViewOverlayWindow(ScreenKeeper& screenKeeper, CompassPlace place)
    : QWidget(nullptr, flagsOf(place)), screenKeeper_(screenKeeper), place_(place) {
    setLayoutDirection(Qt::LeftToRight);  // east is on the right in every language
    setAttribute(Qt::WA_TranslucentBackground, place == CompassPlace::overEverything);
    setAttribute(Qt::WA_QuitOnClose, false);
    root_ = new CompassViewController(this);
}

CompassViewOverlayWindow::~CompassViewOverlayWindow() {
    oldKeyWindow_.clear();
}

void CompassViewOverlayWindow::makeKeyAndVisible() {
    screenKeeper_.keepAwake();
    setOldKeyWindow(QApplication::activeWindow());
    QScreen* const screen = oldKeyWindow_ != nullptr ? oldKeyWindow_->screen() : QGuiApplication::primaryScreen();
    if (place_ == CompassPlace::inWindow) {
        standOn(screen);
        show();
    } else {
        setWindowFlag(Qt::WindowStaysOnTopHint);
        cover(screen);
        showFullScreen();
    }
    raise();
    activateWindow();
}

void CompassViewOverlayWindow::setWindowLook(QSize size, const QColor& ground) {
    windowSize_ = size;
    ground_ = ground;
}

// A child window of the old key window, so that it is above that one and the desktop does not tile it.
void CompassViewOverlayWindow::standOn(QScreen* screen) {
    if (screen == nullptr) return;
    setScreen(screen);
    const QRect available = screen->availableGeometry();
    QRect frame({}, windowSize_.boundedTo(available.size()));
    frame.moveCenter(available.center());
    setGeometry(frame);
    create();
    if (oldKeyWindow_ != nullptr) windowHandle()->setTransientParent(oldKeyWindow_->windowHandle());
}

void CompassViewOverlayWindow::cover(QScreen* screen) {
    if (screen == nullptr) return setGeometry({});
    setScreen(screen);
    setGeometry(screen->geometry());  // without a window manager that does it
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
    event->ignore();  // its owner closes it
    Q_EMIT closeAsked();
}

void CompassViewOverlayWindow::paintEvent(QPaintEvent*) {
    if (place_ == CompassPlace::inWindow) QPainter(this).fillRect(rect(), ground_);
}

void CompassViewOverlayWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    root_->setGeometry(rect());
}

}  // namespace quode
