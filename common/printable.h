// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode {

/// A text without what a terminal or a line of text would obey instead of showing: control characters (C0, DEL, C1) and
/// the marks that reorder what follows them (U+202A to U+202E). Names from files pass through here before they are shown.
std::string printable(std::string_view utf8);

/// The same, with line breaks and tabs kept.
std::string printableLines(std::string_view utf8);

/// True when `printable` would leave something out.
bool hasControls(std::string_view utf8);

}  // namespace quode
