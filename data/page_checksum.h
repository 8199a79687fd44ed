// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The checksums within the file of the city database: one at the end of each page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quode {

/// The size of a page, and of the end of it that SQLite leaves to the checksum. Fixed, as the checksum is.
inline constexpr std::size_t pageSize = 4096;
inline constexpr std::size_t pageChecksumSize = 8;

using Page = std::span<unsigned char, pageSize>;
using ConstPage = std::span<const unsigned char, pageSize>;

/// Writes the checksum of a page at its end. Every change within eight bytes in a row changes it; other changes, and
/// pages that change places, go unnoticed with a probability of 1 in 2^64.
/// @param number  of the page in its file, from 0
void sealPage(Page page, std::uint64_t number);

/// True when a page has the checksum of its content.
bool isSealed(ConstPage page, std::uint64_t number);

}  // namespace quode
