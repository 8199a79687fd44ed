// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace quode {

/// Sides of the dial's and the arrow's pictures, in points of a phone; a tablet shows them twice as large.
constexpr int dialSide = 292;
constexpr int arrowWidth = 43;
constexpr int arrowHeight = 232;

/// The dial with north at the top: bezel, ticks every two degrees, a marker at north, a rose. It bears no letters,
/// which depend on the language.
/// @param scale  pixels per point of a phone
QImage drawDial(double scale);

/// The arrow that points to the qibla when its top does, with the Kaaba behind its tip.
QImage drawArrow(double scale);

}  // namespace quode
