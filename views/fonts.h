// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The fonts of the widget's texts and signs.
#pragma once

#include <QFont>
#include <string>

namespace quode {

/// The font of the signs on buttons.
inline constexpr const char* signFont = "AppleColorEmoji";

/// The font of this name. Letters that it lacks, and all letters where the device has no such font, come from DejaVu Sans.
QFont fontNamed(const std::string& name, int pixelSize);

}  // namespace quode
