// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Texts whose parts run in both directions, with marks that keep each part together where it is drawn.
#pragma once

#include <string>
#include <string_view>

namespace quode {

/// A text of a language written from right to left, in which each part that runs from left to right is kept together: a
/// command with its values, a name, an angle with its sign. Of one line or several. Unchanged in other languages, and
/// without any letter that runs from right to left. Marks that the text has already stay.
std::string inReadingOrder(std::string_view text);

/// A text that is drawn from left to right, in which each part with letters from right to left is kept together, such
/// as a clock with a sign of the half-day in "Sun : 05:41 ص / 07:58 م". Unchanged without such letters.
std::string withPartsTogether(std::string_view text);

}  // namespace quode
