// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Checksums over the bits of the engine's results, to detect any change.
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

/// Checksums over 24,000 city-days in new engines, 8,000 in reused engines, and 24,000 operations in random order, with all
/// fields after each; and over the calendars and the magnetic declination.
std::vector<BitBlock> engineBits();

/// Identifies a maths library: a checksum over results of the C library's functions. The engine's last bits depend on them:
/// with fused multiply-add the same library rounds differently.
std::uint64_t mathsLibraryBits();

/// A file of checksums: lines of a name and sixteen hexadecimal digits, the first one "maths"; '#' begins a comment.
struct BitFile {
    std::uint64_t maths = 0;
    std::vector<BitBlock> blocks;
};

std::string textOf(const BitFile& file);
BitFile bitFileOf(const std::string& text);

}  // namespace quode::test
