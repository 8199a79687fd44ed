// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/printable.h"

namespace quode {
namespace {

struct Kept {
    bool lines = false;
    bool isolates = false;
};

// The number of bytes of a character at the start of a text that is left out; 0 when it is kept.
std::size_t omittedLength(std::string_view text, Kept kept) {
    const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    if (kept.lines && (byte(0) == '\n' || byte(0) == '\t')) return 0;
    if (byte(0) < 0x20 || byte(0) == 0x7F) return 1;
    if (byte(0) == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F) return 2;
    if (byte(0) != 0xE2) return 0;
    const bool isMark = byte(1) == 0x80 && (byte(2) == 0x8E || (byte(2) >= 0xA8 && byte(2) <= 0xAE));
    const bool isIsolate = byte(1) == 0x81 && byte(2) >= 0xA6 && byte(2) <= 0xA9;
    return isMark || (isIsolate && !kept.isolates) ? 3 : 0;
}

std::string without(std::string_view text, Kept kept) {
    std::string rest;
    rest.reserve(text.size());
    while (!text.empty()) {
        const std::size_t omitted = omittedLength(text, kept);
        if (omitted == 0) rest += text.front();
        text.remove_prefix(omitted == 0 ? 1 : omitted);
    }
    return rest;
}

}  // namespace

std::string printable(std::string_view utf8) {
    return without(utf8, {});
}

std::string printableLines(std::string_view utf8) {
    return without(utf8, {.lines = true, .isolates = true});
}

bool hasControls(std::string_view utf8) {
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        if (omittedLength(utf8.substr(i), {}) != 0) return true;
    }
    return false;
}

}  // namespace quode
