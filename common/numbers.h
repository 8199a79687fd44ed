// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Numbers as text and back, the same in every locale: the decimal mark is a point, digits are not grouped. All of Quode
// reads and writes numbers with these functions; {fmt}, which also ignores the locale, formats them within longer texts.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace quode {

/// A text without the blanks around it.
inline std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\n\v\f\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Removes a number from the front of a text; blanks or a plus sign before it are not accepted.
/// @param text  receives the rest; unchanged when nothing is returned
/// @return nothing when the text does not begin with a number, or with one that is not finite or that the type cannot
///         hold
template <typename Number>
std::optional<Number> takeNumber(std::string_view& text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc()) return std::nullopt;
    if constexpr (std::floating_point<Number>) {
        if (!std::isfinite(value)) return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

/// The finite number that a whole text represents; blanks around it and a plus sign are accepted.
/// @return nothing for any other text
template <typename Number>
std::optional<Number> numberOf(std::string_view text) {
    text = trimmed(text);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    const std::optional<Number> value = takeNumber<Number>(text);
    return text.empty() ? value : std::nullopt;
}

/// The number at the front of a text, after blanks and a plus sign; 0 without a number. A whole number that is too large
/// becomes the nearest end of the range; a decimal number that is too large or not finite becomes 0.
template <typename Number>
Number leadingNumber(std::string_view text) {
    text = trimmed(text);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    if constexpr (std::integral<Number>) {
        Number value{};
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc::result_out_of_range) return value;
        return text.front() == '-' ? std::numeric_limits<Number>::min() : std::numeric_limits<Number>::max();
    } else {
        return takeNumber<Number>(text).value_or(Number{});
    }
}

/// The shortest text that converts back to the same number: "3", "-3.5", "5.75".
template <typename Number>
std::string numberText(Number value) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

/// A number with a fixed count of decimals, rounded as "%f" does: "41.013840".
inline std::string fixedText(double value, int decimals) {
    // The largest double has 309 digits before the point.
    std::array<char, 400> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return error == std::errc() ? std::string(text.data(), end) : numberText(value);
}

}  // namespace quode
