// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"

namespace quode {

/// A part of a glyph, drawn with one stroke width.
struct GlyphPart {
    QPainterPath path;
    double width = 1.0;  ///< 0 for no stroke
    Qt::PenCapStyle cap = Qt::FlatCap;
    bool filled = false;  ///< filled besides being stroked
};

/// The parts of a glyph in the order in which they are drawn; none for a number without a glyph.
/// They are drawn once for each place and size; the returned list lasts until the next call.
/// @param shape         as UIButtonX::buttonShape
/// @param area          the rectangle that the glyph is drawn into
/// @param defaultWidth  stroke width of the glyphs that have none of their own
const std::vector<GlyphPart>& glyphParts(std::int32_t shape, const Rect& area, double defaultWidth);

/// The sign that the caption shows in the place of a glyph; empty for a shape that is drawn.
std::string_view signOfShape(std::int32_t shape);

/// The path of a frame.
/// @param type  as UIButtonX::buttonType; empty for a number without a frame
QPainterPath framePath(std::int32_t type, const Rect& rect);

}  // namespace quode
