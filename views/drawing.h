// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPainterPath>
#include <optional>
#include <string>

#include "common/Color.h"
#include "views/Label.h"
#include "views/Point.h"

namespace quode {

// ---- Fixed names: the functions of this file ----

/// Adds a closed rectangle with round corners to a path, without filling or stroking it.
/// @param radius  of the corners; at most half of the shorter side is used
void drawRoundedRectangle(QPainterPath& path, const Rect& rect, double radius);

/// An image turned clockwise about its centre.
/// @param size  the size of the image before it is turned, points
/// @return an image of the size of the turned rectangle's bounds, transparent around it, in the resolution of `image`
QImage imageRotatedByDegrees(double degrees, const QImage& image, Size size);

/// An image mirrored left to right, in a size in points, in the resolution of `image`.
QImage flippedImageByAxis(const QImage& image, Size size);

/// Creates a label and adds it to a view.
/// @param center,size  in the parent, points
/// @param text         nothing: the label stays empty
/// @param shadow       a black shadow one point right and down
/// @return the label, owned by the parent
Label* addLabel(QWidget& parent, Point center, Size size, const std::string& fontName, double fontSize,
                std::optional<std::string> text, const Color& textColor, TextAlign textAlign, bool hidden, bool shadow,
                int tag);

}  // namespace quode
