// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace quode {

/// Characters in a row that take as many columns of a terminal; the ones in no range take one.
struct WidthRange {
    std::uint32_t first, last;
    int width;
};

/// In ascending order; made from ICU's properties by tools/locales when Quode is built.
extern const std::span<const WidthRange> widthRanges;

/// The columns that a character takes: 0 for a mark over another or a character that only formats, 2 for a wide one, else 1.
int characterWidth(char32_t character);

}  // namespace quode
