// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// A width and a height, in points.
struct Size {
    double width = 0.0;
    double height = 0.0;

    friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle, in points; the origin is its upper left corner.
struct Rect {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace quode
