// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/page_checksum.h"

#include <bit>

namespace quode {
namespace {

// A number with its lowest byte first, on every machine.
std::uint64_t wordAt(ConstPage page, std::size_t at) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < sizeof word; ++i) word |= std::uint64_t{page[at + i]} << (8 * i);
    return word;
}

constexpr std::size_t contentSize = pageSize - pageChecksumSize;

std::uint64_t checksumOf(ConstPage page, std::uint64_t number) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;  // odd, so that no step loses a bit
    constexpr int turn = 31;
    std::uint64_t sum = ~number;
    for (std::size_t at = 0; at < contentSize; at += sizeof sum) {
        sum = std::rotl((sum ^ wordAt(page, at)) * factor, turn);
    }
    return sum;
}

}  // namespace

void sealPage(Page page, std::uint64_t number) {
    const std::uint64_t sum = checksumOf(page, number);
    for (std::size_t i = 0; i < sizeof sum; ++i) page[contentSize + i] = static_cast<unsigned char>(sum >> (8 * i));
}

bool isSealed(ConstPage page, std::uint64_t number) {
    return wordAt(page, contentSize) == checksumOf(page, number);
}

}  // namespace quode
