// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QMetaObject>
#include <QPointer>
#include <QWidget>
#include <vector>

#include "compass/CompassViewController.h"
#include "platform/ScreenKeeper.h"

class QScreen;

namespace quode {

/// How the compass stands on the screen.
enum class CompassPlace {
    overEverything,  ///< it covers the whole screen, without a frame and above all other windows
    inWindow,        ///< a picture in an ordinary window: nothing turns it that is worth a whole screen
};

/// The window of the compass.
class CompassViewOverlayWindow : public QWidget {
    Q_OBJECT

  public:
    /// @param screenKeeper  kept by the caller for as long as the window lives
    explicit CompassViewOverlayWindow(ScreenKeeper& screenKeeper, CompassPlace place = CompassPlace::overEverything);
    ~CompassViewOverlayWindow() override;

    CompassViewController& rootViewController() { return *root_; }

    CompassPlace place() const { return place_; }

    /// The size of an ordinary window, in points, and what is behind the compass there.
    void setWindowLook(QSize size, const QColor& ground);

    /// Keeps the screen awake, notes the active window as the old key window, and shows this one above all others on
    /// that window's screen, or in its middle, with the keyboard's focus.
    void makeKeyAndVisible();

    /// Hides the window and makes the old key window the active one again.
    void resignKeyWindow();

    /// The window that was active before this one; nothing when there was none or when it is gone.
    QWidget* oldKeyWindow() const { return oldKeyWindow_; }
    void setOldKeyWindow(QWidget* window) { oldKeyWindow_ = window; }

    /// How opaque everything in the window is, 0 to 1. What is drawn here follows the signal: not every window system
    /// can do it.
    double alpha() const { return alpha_; }
    void setAlpha(double alpha);

  Q_SIGNALS:
    void alphaChanged(double alpha);
    /// The desktop, or the user by the desktop's means, closes the window.
    void closeAsked();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void cover(QScreen* screen);
    void standOn(QScreen* screen);
    void onScreenTurned();

    ScreenKeeper& screenKeeper_;
    CompassPlace place_;
    QSize windowSize_;
    QColor ground_;
    CompassViewController* root_;
    QPointer<QWidget> oldKeyWindow_;
    double alpha_ = 1.0;
};

}  // namespace quode
