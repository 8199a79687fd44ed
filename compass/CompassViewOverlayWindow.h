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

/// How the compass is shown on the screen.
enum class CompassPlace {
    overEverything,  ///< it covers the whole screen, without a frame and above all other windows
    inWindow,        ///< a picture in an ordinary window, for a device without a sensor
};

/// The window of the compass. Fixed names: `makeKeyAndVisible`, `resignKeyWindow`, `oldKeyWindow`, `setOldKeyWindow`.
class CompassViewOverlayWindow : public QWidget {
    Q_OBJECT

  public:
    /// @param screenKeeper  must outlive the window
    explicit CompassViewOverlayWindow(ScreenKeeper& screenKeeper, CompassPlace place = CompassPlace::overEverything);
    ~CompassViewOverlayWindow() override;

    CompassViewController& rootViewController() { return *root_; }

    CompassPlace place() const { return place_; }

    /// Sets the size of an ordinary window, in points, and its background.
    void setWindowLook(QSize size, const QColor& ground);

    /// Keeps the screen awake, stores the active window as the old key window, and shows this one above all others on that
    /// window's screen, or in its middle, with the keyboard focus.
    void makeKeyAndVisible();

    /// Hides the window and activates the old key window again.
    void resignKeyWindow();

    /// The window that was active before this one; null without one, or when it is deleted.
    QWidget* oldKeyWindow() const { return oldKeyWindow_; }
    void setOldKeyWindow(QWidget* window) { oldKeyWindow_ = window; }

    /// The opacity of the content, 0 to 1. The content follows the signal, because not every window system supports
    /// transparent windows.
    double alpha() const { return alpha_; }
    void setAlpha(double alpha);

  Q_SIGNALS:
    void alphaChanged(double alpha);
    /// The desktop, or the user through the desktop, closes the window.
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
