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

/// Replaces the placeholders "%d" and "%@" of a format from a language pack with values, in order; "%%" gives "%".
/// @throw std::invalid_argument  with the format in its text, when the values do not match the number and kinds of the
///                               placeholders
std::string filledFormat(std::string_view format, std::initializer_list<FormatValue> values);

/// The kinds of the placeholders of a format, in order: "d" or "@" for each, "" for a plain text.
/// @throw std::invalid_argument  when the format contains any other placeholder
std::string placeholdersOf(std::string_view format);

}  // namespace quode
