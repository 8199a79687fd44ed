// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode {

/// A text without the characters that control a terminal instead of being shown: control characters (C0, DEL, C1),
/// separators of lines (U+2028, U+2029) and the marks that change the direction of what follows (U+200E, U+202A to U+202E,
/// U+2066 to U+2069). Use it before showing names from files.
std::string printable(std::string_view utf8);

/// The same for a message, whose line breaks, tabs and isolated parts (U+2066 to U+2069, see `isolated`) are kept.
std::string printableLines(std::string_view utf8);

/// True when `printable` would remove something.
bool hasControls(std::string_view utf8);

}  // namespace quode
