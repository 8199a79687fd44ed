// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A line of the notes of rings, with a checksum that is right.
#include <fmt/format.h>

#include <cstdint>
#include <string>

#include "companion/ring_lines.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeRingNotes(std::string_view bytes) {
    constexpr std::size_t contentLength = ringLineLength - 9;
    std::string line(bytes.substr(0, contentLength));
    line.resize(contentLength, ' ');
    std::uint32_t sum = 2166136261U;
    for (const char c : line) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U;
    line += fmt::format("{:08x}\n", sum);
    if (const auto ring = ringFrom(line)) require(ringFrom(ringLine(*ring)).has_value());
    if (const auto note = decidedFrom(line)) require(decidedFrom(decidedLine(*note)).has_value());
}

const Target ofRingNotes("ring_notes", consumeRingNotes);

}  // namespace
}  // namespace quode::fuzz
