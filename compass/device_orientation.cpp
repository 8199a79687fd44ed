// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/device_orientation.h"

#include <optional>

namespace quode {
namespace {

// Quarter turns of the content relative to the device, counter-clockwise from portrait.
std::optional<int> quarterTurns(Qt::ScreenOrientation orientation) {
    switch (orientation) {
        case Qt::PortraitOrientation:
            return 0;
        case Qt::InvertedLandscapeOrientation:
            return 1;
        case Qt::InvertedPortraitOrientation:
            return 2;
        case Qt::LandscapeOrientation:
            return 3;
        default:
            return std::nullopt;
    }
}

}  // namespace

DeviceOrientation deviceOrientation(Qt::ScreenOrientation native, Qt::ScreenOrientation current) {
    const int from = quarterTurns(native).value_or(3);
    const int to = quarterTurns(current).value_or(from);
    switch ((to - from + 4) % 4) {
        case 1:
            return DeviceOrientation::landscapeRight;
        case 2:
            return DeviceOrientation::upsideDown;
        case 3:
            return DeviceOrientation::landscapeLeft;
        default:
            return DeviceOrientation::portrait;
    }
}

}  // namespace quode
