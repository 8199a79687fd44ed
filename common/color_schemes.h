// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "common/Color.h"

namespace quode {

/// The five colours of the user interface, first to fifth.
using ColorScheme = std::array<Color, 5>;

inline constexpr int colorSchemeCount = 6;
inline constexpr int defaultColorScheme = 1;

/// The colours of a scheme 0..5; of the default scheme for any other number.
ColorScheme colorScheme(int id);

}  // namespace quode
