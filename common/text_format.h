// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace quode {

/// A value for a placeholder: a whole number for "%d", a text for "%@".
using FormatValue = std::variant<int, std::string_view>;

/// Fills the placeholders of a format of the language pack, "%d" and "%@", with the values in their order; "%%" gives
/// "%". Throws std::invalid_argument, with the format in its text, when number or kind of the placeholders is not that
/// of the values.
std::string filledFormat(std::string_view format, std::initializer_list<FormatValue> values);

/// The kinds of the placeholders of a format in their order: "d" and "@" for each, so "" for a plain text.
/// Throws std::invalid_argument when the format holds any other placeholder.
std::string placeholdersOf(std::string_view format);

}  // namespace quode
