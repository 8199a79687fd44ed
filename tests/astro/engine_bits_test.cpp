// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Every bit of the engine's results equals that of the recorded checksums.
#include "engine_bits.h"
#include "support/fixtures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace quode::test {
namespace {

const std::filesystem::path folder = test::fixture("engine_bits");

std::optional<BitFile> checksumsFor(std::uint64_t maths) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".txt") continue;
        std::ifstream in(entry.path());
        BitFile file = bitFileOf(std::string(std::istreambuf_iterator<char>(in), {}));
        if (file.maths == maths) return file;
    }
    return std::nullopt;
}

TEST(EngineBits, AreThoseOfTheRecordedChecksums) {
    const auto recorded = checksumsFor(mathsLibraryBits());
    if (!recorded) {
        GTEST_SKIP()
            << "The C library's maths functions round on this machine as on none of those whose checksums are in "
            << folder << ". Build write_engine_bits from a revision whose engine is known to be good, and from "
            << "this one, and compare what they print.";
    }
    const std::vector<BitBlock> now = engineBits();
    ASSERT_EQ(now.size(), recorded->blocks.size());
    std::string changed;
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i] != recorded->blocks[i]) changed += " " + now[i].name;
    }
    EXPECT_EQ(changed, "") << "These groups of results changed.";
}

TEST(EngineBits, AreKnownForTheMathsLibraryOfTheBuildMachines) {
    std::vector<std::uint64_t> known;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".txt") continue;
        std::ifstream in(entry.path());
        const BitFile file = bitFileOf(std::string(std::istreambuf_iterator<char>(in), {}));
        EXPECT_GT(file.blocks.size(), 300U) << entry.path();
        known.push_back(file.maths);
    }
    EXPECT_EQ(known.size(), 2U);
    EXPECT_THAT(known, testing::Each(testing::Ne(0U)));
}

TEST(EngineBits, NoticeASingleBit) {
    BitFile file{1, {{"a", 0x0123456789abcdef}}};
    EXPECT_EQ(bitFileOf(textOf(file)).blocks, file.blocks);
    BitFile other = bitFileOf(textOf(file));
    other.blocks[0].checksum ^= 1;
    EXPECT_NE(bitFileOf(textOf(other)).blocks, file.blocks);
}

}  // namespace
}  // namespace quode::test
