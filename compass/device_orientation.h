// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

namespace quode {

/// The orientation of the device, as its user sees it. Fixed values.
enum class DeviceOrientation {
    unknown = 0,
    portrait = 1,  ///< the device's natural position; for a desktop's screen its usual one
    upsideDown = 2,
    landscapeLeft = 3,   ///< the device's top is at the left
    landscapeRight = 4,  ///< the device's top is at the right
};

/// The orientation of a device from that of its screen's content.
/// @param native,current  as a screen reports them; an unknown native orientation counts as landscape, from which window
///                        systems count turns
DeviceOrientation deviceOrientation(Qt::ScreenOrientation native, Qt::ScreenOrientation current);

}  // namespace quode
