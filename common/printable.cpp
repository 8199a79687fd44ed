// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/printable.h"

#include "texts/utf8.h"

namespace quode {
namespace {

bool isControl(char32_t code) {
    const bool isDirection = code >= U'\u202A' && code <= U'\u202E';
    return code < U' ' || (code >= 0x7F && code <= 0x9F) || isDirection;
}

std::string without(std::string_view text, bool keepLines) {
    std::string kept;
    kept.reserve(text.size());
    while (!text.empty()) {
        std::string_view rest = text;
        const std::optional<char32_t> code = takeCodePoint(rest);
        const bool isLine = keepLines && (code == U'\n' || code == U'\t');
        if (!code || isLine || !isControl(*code)) kept += text.substr(0, text.size() - rest.size());
        text = rest;
    }
    return kept;
}

}  // namespace

std::string printable(std::string_view utf8) {
    return without(utf8, false);
}

std::string printableLines(std::string_view utf8) {
    return without(utf8, true);
}

bool hasControls(std::string_view utf8) {
    while (!utf8.empty()) {
        const std::optional<char32_t> code = takeCodePoint(utf8);
        if (code && isControl(*code)) return true;
    }
    return false;
}

}  // namespace quode
