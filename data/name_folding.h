// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode {

/// A name reduced to what matters when names are compared: small letters without diacritics (the dotless ı and ł, đ, ø,
/// ß, æ, þ and their like included), digits, and single blanks in place of everything between words. Apostrophes vanish
/// without trace, so that "Sana'a" and "Sanaa" are alike. Letters of other scripts stay as they are; broken UTF-8
/// counts as a blank.
std::string foldedName(std::string_view utf8);

/// The number of typing mistakes between two texts: letters added, dropped, replaced, or two neighbours swapped.
/// Returned: `limit` + 1 as soon as there are more than `limit`.
int typingMistakes(std::string_view a, std::string_view b, int limit);

}  // namespace quode
