// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/CompassDevices.h"

#include "platform/qt/screensaver_keeper.h"
#include "platform/qt/sensor_proxy_heading.h"

namespace quode {

CompassDevices systemCompassDevices(const std::string& reason) {
    return {sensorProxyHeading(), screenSaverKeeper("Quode", reason), {}, hasCompassSensor()};
}

}  // namespace quode
