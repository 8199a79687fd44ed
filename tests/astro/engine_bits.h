// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Checksums over the bits of the engine's results, to notice that any of them changes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quode::test {

/// The checksum of a group of computations.
struct BitBlock {
    std::string name;
    std::uint64_t checksum = 0;

    friend bool operator==(const BitBlock&, const BitBlock&) = default;
};

/// Checksums over 24,000 city-days in engines of their own, 8,000 in engines that are kept, and 24,000 operations in
/// random order, with all fields after each of them; and over the calendars and the magnetic declination.
std::vector<BitBlock> engineBits();

/// Tells maths libraries apart: a checksum over what the C library's functions give. The engine's last bits follow it:
/// with fused multiply-add the same library rounds differently from without.
std::uint64_t mathsLibraryBits();

/// A file of checksums: lines of a name and sixteen hexadecimal digits, the first one "maths"; '#' begins a comment.
struct BitFile {
    std::uint64_t maths = 0;
    std::vector<BitBlock> blocks;
};

std::string textOf(const BitFile& file);
BitFile bitFileOf(const std::string& text);

}  // namespace quode::test
