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

/// Adds a closed rectangle with round corners to a path. Nothing is filled or stroked.
/// @param radius  of the corners; at most half of the shorter side is used
void drawRoundedRectangle(QPainterPath& path, const Rect& rect, double radius);

/// An image turned clockwise about its centre.
/// @param size  the size in which the image is drawn before it is turned
/// @return an image as large as the turned rectangle needs, transparent around it, in the resolution of `image`
QImage imageRotatedByDegrees(double degrees, const QImage& image, Size size);

/// An image mirrored left to right, drawn in a size, in the resolution of `image`.
QImage flippedImageByAxis(const QImage& image, Size size);

/// Makes a label and adds it to a view.
/// @param center, size  place of the label in the parent
/// @param text          a missing text shows nothing
/// @param shadow        a black shadow one point right and down
/// @return the label, owned by the parent
Label* addLabel(QWidget& parent, Point center, Size size, const std::string& fontName, double fontSize,
                std::optional<std::string> text, const Color& textColor, TextAlign textAlign, bool hidden, bool shadow,
                int tag);

}  // namespace quode
