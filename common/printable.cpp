// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/printable.h"

namespace quode {
namespace {

// The number of bytes of a control character at the start of a text; 0 when there is none.
std::size_t controlLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    if (byte(0) < 0x20 || byte(0) == 0x7F) return 1;
    if (byte(0) == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F) return 2;
    if (byte(0) == 0xE2 && byte(1) == 0x80 && byte(2) >= 0xAA && byte(2) <= 0xAE) return 3;
    return 0;
}

std::string without(std::string_view text, bool keepLines) {
    std::string kept;
    kept.reserve(text.size());
    while (!text.empty()) {
        const bool isLine = keepLines && (text.front() == '\n' || text.front() == '\t');
        const std::size_t control = isLine ? 0 : controlLength(text);
        if (control == 0) kept += text.front();
        text.remove_prefix(control == 0 ? 1 : control);
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
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        if (controlLength(utf8.substr(i)) != 0) return true;
    }
    return false;
}

}  // namespace quode
