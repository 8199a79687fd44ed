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

/// The services of the device that the compass uses. No pointer is null.
struct CompassDevices {
    std::unique_ptr<HeadingSource> headingSource;
    std::unique_ptr<ScreenKeeper> screenKeeper;
    std::function<DeviceOrientation()> orientation;  ///< empty: the orientation of the compass's screen
    bool hasSensor = true;  ///< false: the compass is a picture in a window and does not cover the screen
};

/// The sensor service and the screen-saver service of this system.
/// @param reason  shown by the desktop as the reason why the screen stays on
CompassDevices systemCompassDevices(const std::string& reason);

}  // namespace quode
