// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace quode::cli {

/// The Moon's disc as lines of characters: the lit part as blocks, the dark part as dots. All lines are `2 * height`
/// columns wide.
/// @param illuminated    the lit part of the disc, 0..1
/// @param litOnTheRight  the side from which the light comes
/// @param height         lines, at least 2
std::vector<std::string> moonPicture(double illuminated, bool litOnTheRight, int height);

}  // namespace quode::cli
