// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode {

/// A text without the characters that control a terminal instead of being shown: control characters (C0, DEL, C1) and the
/// marks that change the direction of text (U+202A to U+202E). Use it before showing names from files.
std::string printable(std::string_view utf8);

/// The same, with line breaks and tabs kept.
std::string printableLines(std::string_view utf8);

/// True when `printable` would remove something.
bool hasControls(std::string_view utf8);

}  // namespace quode
