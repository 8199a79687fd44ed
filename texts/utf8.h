// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The one UTF-8 decoder, and where a text may be cut.
#pragma once

#include <unicode/utf8.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace quode {

/// Removes the first code point from a text. A byte that does not begin a well-formed sequence (stray or missing
/// continuation, overlong form, surrogate, above U+10FFFF) is removed alone.
/// @param text  not empty; receives the rest
/// @return the code point; nothing for such a byte
inline std::optional<char32_t> takeCodePoint(std::string_view& text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size() < 4 ? text.size() : 4);
    std::int32_t next = 0;
    UChar32 code = 0;
    U8_NEXT(bytes, next, length, code);
    text.remove_prefix(code < 0 ? 1 : static_cast<std::size_t>(next));
    if (code < 0) return std::nullopt;
    return static_cast<char32_t>(code);
}

/// The beginning of a text that has at most so many bytes and does not end within a character.
inline std::string_view beginningOf(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes) return text;
    const auto continues = [&text](std::size_t at) { return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U; };
    while (bytes > 0 && continues(bytes)) --bytes;
    return text.substr(0, bytes);
}

}  // namespace quode
