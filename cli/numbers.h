#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace quode::cli {

/// A text without the blanks around it.
inline std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// The number that a text is; nothing when it is anything else. Blanks around it and a plus sign are allowed.
template <typename Number>
std::optional<Number> numberOf(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace quode::cli
