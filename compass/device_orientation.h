// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

namespace quode {

/// How the device is held, as its user sees it.
enum class DeviceOrientation {
    unknown = 0,
    portrait = 1,  ///< the way the device is built to stand; for a desktop's screen its usual way
    upsideDown = 2,
    landscapeLeft = 3,   ///< the device's top is at the left
    landscapeRight = 4,  ///< the device's top is at the right
};

/// The orientation of a device whose screen shows its content this way up.
/// @param native, current  as a screen reports them; a native orientation that is not known reads as landscape, from
/// which window systems count their turns
DeviceOrientation deviceOrientation(Qt::ScreenOrientation native, Qt::ScreenOrientation current);

}  // namespace quode
