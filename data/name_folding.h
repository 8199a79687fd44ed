// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode {

/// A name in the form in which names are compared: lower-case letters without diacritics (including the dotless ı and ł,
/// đ, ø, ß, æ, þ), digits, and single blanks in place of everything between words. Apostrophes are removed, so "Sana'a"
/// equals "Sanaa". Letters of other scripts stay as they are; malformed UTF-8 counts as a blank.
std::string foldedName(std::string_view utf8);

/// The number of typing mistakes between two texts: letters added, omitted, replaced, or two adjacent ones swapped.
/// @return at most `limit` + 1, which stands for any larger number
int typingMistakes(std::string_view a, std::string_view b, int limit);

}  // namespace quode
