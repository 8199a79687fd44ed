// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/printable.h"

#include "texts/utf8.h"

namespace quode {
namespace {

struct Kept {
    bool lines = false;
    bool isolates = false;
};

// Characters that a terminal obeys, or that change the order of what follows.
bool isOmitted(char32_t code, Kept kept) {
    if (kept.lines && (code == U'\n' || code == U'\t')) return false;
    const bool isControl = code < U' ' || (code >= 0x7F && code <= 0x9F);
    const bool isMark = code == U'\u200E' || (code >= U'\u2028' && code <= U'\u202E');
    const bool isIsolate = code >= U'\u2066' && code <= U'\u2069';
    return isControl || isMark || (isIsolate && !kept.isolates);
}

std::string without(std::string_view text, Kept kept) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        std::string_view rest = text;
        const std::optional<char32_t> code = takeCodePoint(rest);
        if (!code || !isOmitted(*code, kept)) result += text.substr(0, text.size() - rest.size());
        text = rest;
    }
    return result;
}

}  // namespace

std::string printable(std::string_view utf8) {
    return without(utf8, {});
}

std::string printableLines(std::string_view utf8) {
    return without(utf8, {.lines = true, .isolates = true});
}

bool hasControls(std::string_view utf8) {
    while (!utf8.empty()) {
        const std::optional<char32_t> code = takeCodePoint(utf8);
        if (code && isOmitted(*code, {})) return true;
    }
    return false;
}

}  // namespace quode
