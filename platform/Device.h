// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "platform/Geometry.h"

namespace quode {

/// The kind of user interface that a device offers.
enum class Idiom { phone = 0, tablet = 1 };

/// The kind of device and the size of its main screen.
class Device {
  public:
    virtual ~Device() = default;

    /// The kind of user interface; nothing when it is unknown.
    virtual std::optional<Idiom> idiom() const = 0;

    /// The version of the operating system as text, such as "8.1".
    virtual std::string systemVersion() const = 0;

    /// The area of the main screen, in points.
    virtual Rect screenBounds() const = 0;

    /// Pixels per point of the main screen.
    virtual double screenScale() const = 0;
};

}  // namespace quode
