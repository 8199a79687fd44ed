// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "compass/device_orientation.h"
#include "platform/HeadingSource.h"
#include "platform/ScreenKeeper.h"

namespace quode {

/// What the compass asks of the device. No pointer is null.
struct CompassDevices {
    std::unique_ptr<HeadingSource> headingSource;
    std::unique_ptr<ScreenKeeper> screenKeeper;
    std::function<DeviceOrientation()> orientation;  ///< when empty, that of the screen on which the compass is shown
    bool hasSensor = true;  ///< without one the compass is a picture in a window instead of covering the screen
};

/// The sensor service and the screen-saver service of this system.
/// @param reason  why the screen stays on, for the user who asks the desktop
CompassDevices systemCompassDevices(const std::string& reason);

}  // namespace quode
