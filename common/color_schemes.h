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

/// The colours of a scheme.
/// @param id  0..5; another number gives the default scheme
ColorScheme colorScheme(int id);

}  // namespace quode
