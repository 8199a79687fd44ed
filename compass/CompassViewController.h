// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "compass/device_orientation.h"

namespace quode {

/// The transparent root of the overlay window. It contains the compass and notifies it when the screen turns. Fixed names:
/// all.
class CompassViewController : public QWidget {
    Q_OBJECT

  public:
    explicit CompassViewController(QWidget* parent = nullptr);

    /// True: the compass is shown in every orientation.
    bool shouldAutorotateToInterfaceOrientation(DeviceOrientation) const { return true; }

    /// Sets the frame of the top compass to an empty one, and updates its dial. The compass still covers the window, because
    /// its parts are not clipped.
    /// @param duration  seconds; the turn is not animated here
    void willAnimateRotationToInterfaceOrientation(DeviceOrientation orientation, double duration);

  protected:
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace quode
