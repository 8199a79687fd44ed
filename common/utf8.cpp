// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/utf8.h"

#include <cstddef>

namespace quode {
namespace {

struct Sequence {
    std::size_t length;       // bytes in all; 0 for a byte that begins nothing
    unsigned char low, high;  // bounds of the second byte
};

// What may follow a first byte (The Unicode Standard, table 3-7).
Sequence sequenceOf(unsigned char first) {
    if (first <= 0x7F) return {1, 0, 0};
    if (first >= 0xC2 && first <= 0xDF) return {2, 0x80, 0xBF};
    if (first == 0xE0) return {3, 0xA0, 0xBF};
    if (first == 0xED) return {3, 0x80, 0x9F};
    if (first >= 0xE1 && first <= 0xEF) return {3, 0x80, 0xBF};
    if (first == 0xF0) return {4, 0x90, 0xBF};
    if (first >= 0xF1 && first <= 0xF3) return {4, 0x80, 0xBF};
    if (first == 0xF4) return {4, 0x80, 0x8F};
    return {0, 0, 0};
}

}  // namespace

bool isUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const Sequence sequence = sequenceOf(static_cast<unsigned char>(bytes.front()));
        if (sequence.length == 0 || bytes.size() < sequence.length) return false;
        for (std::size_t i = 1; i < sequence.length; ++i) {
            const auto byte = static_cast<unsigned char>(bytes[i]);
            const unsigned char low = i == 1 ? sequence.low : 0x80;
            const unsigned char high = i == 1 ? sequence.high : 0xBF;
            if (byte < low || byte > high) return false;
        }
        bytes.remove_prefix(sequence.length);
    }
    return true;
}

}  // namespace quode
