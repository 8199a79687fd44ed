// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/character_width.h"

#include <algorithm>

namespace quode {

int characterWidth(char32_t character) {
    const auto after = std::upper_bound(widthRanges.begin(), widthRanges.end(), character,
                                        [](char32_t value, const WidthRange& range) { return value < range.first; });
    if (after == widthRanges.begin()) return 1;
    const WidthRange& range = *std::prev(after);
    return character <= range.last ? range.width : 1;
}

}  // namespace quode
