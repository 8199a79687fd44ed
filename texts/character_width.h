// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace quode {

/// A range of characters of the same width in a terminal, in columns; characters outside all ranges take one.
struct WidthRange {
    std::uint32_t first, last;
    int width;
};

/// In ascending order; tools/locales makes them from ICU's properties during the build.
extern const std::span<const WidthRange> widthRanges;

/// The columns that a character takes: 0 for a mark over another or a character that only formats, 2 for a wide one, else 1.
int characterWidth(char32_t character);

}  // namespace quode
