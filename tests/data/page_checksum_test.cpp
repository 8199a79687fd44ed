// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/page_checksum.h"

#include <gtest/gtest.h>

#include <array>

namespace quode {
namespace {

std::array<unsigned char, pageSize> sealedPage(std::uint64_t number) {
    std::array<unsigned char, pageSize> page{};
    for (std::size_t i = 0; i < page.size(); ++i) page[i] = static_cast<unsigned char>(i * i / 7);
    sealPage(page, number);
    return page;
}

TEST(PageChecksum, NoticesEveryWrongBit) {
    auto page = sealedPage(3);
    ASSERT_TRUE(isSealed(page, 3));
    for (std::size_t i = 0; i < page.size(); ++i) {
        for (unsigned bit = 1; bit < 256; bit *= 2) {
            page[i] ^= static_cast<unsigned char>(bit);
            ASSERT_FALSE(isSealed(page, 3)) << i;
            page[i] ^= static_cast<unsigned char>(bit);
        }
    }
}

TEST(PageChecksum, NoticesTwoWrongBitsOfTheSameValue) {
    auto page = sealedPage(3);
    for (std::size_t i = 8; i + 8 < page.size(); i += 8) {
        page[i - 1] ^= 0x80;
        page[i + 7] ^= 0x80;
        ASSERT_FALSE(isSealed(page, 3)) << i;
        page[i - 1] ^= 0x80;
        page[i + 7] ^= 0x80;
    }
}

TEST(PageChecksum, NoticesAPageInAnothersPlace) {
    EXPECT_FALSE(isSealed(sealedPage(3), 4));
}

TEST(PageChecksum, NoticesAnEmptyPage) {
    EXPECT_FALSE(isSealed(std::array<unsigned char, pageSize>{}, 0));
}

TEST(PageChecksum, IsTheSameOnEveryMachine) {
    const auto page = sealedPage(1);
    std::uint64_t stored = 0;  // with its lowest byte first
    for (std::size_t i = 0; i < pageChecksumSize; ++i) stored = stored << 8 | page[pageSize - 1 - i];
    EXPECT_EQ(stored, 0xD88E71898B5FA90FU);
}

}  // namespace
}  // namespace quode
