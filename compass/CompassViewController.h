// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "compass/device_orientation.h"

namespace quode {

/// The clear root of the overlay window. Holds the compass and tells it when the screen is turned.
class CompassViewController : public QWidget {
    Q_OBJECT

  public:
    explicit CompassViewController(QWidget* parent = nullptr);

    /// True: the compass is shown in every orientation.
    bool shouldAutorotateToInterfaceOrientation(DeviceOrientation) const { return true; }

    /// Empties the frame of the compass on top, which goes on to cover the window as its parts are not clipped, and
    /// places its dial again.
    /// @param duration  seconds; the turn is not animated here
    void willAnimateRotationToInterfaceOrientation(DeviceOrientation orientation, double duration);

  protected:
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace quode
