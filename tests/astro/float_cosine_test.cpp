// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The vectorised cosine equals the C library's bit for bit, over its whole range.
#include "astro/float_cosine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace quode {
namespace {

constexpr std::size_t batch = 4096;

/// The number of floats in a range, in steps of their bit patterns, whose cosine differs from the library's.
std::int64_t differences(float first, float last, std::uint32_t step) {
    const std::vector<double> ones(batch, 1.0), zeros(batch, 0.0);
    std::vector<double> arguments(batch), cosines(batch);
    std::int64_t different = 0;
    std::uint32_t bits = std::bit_cast<std::uint32_t>(first);
    const std::uint32_t end = std::bit_cast<std::uint32_t>(last);
    while (bits <= end) {
        for (double& argument : arguments) {
            argument = std::bit_cast<float>(std::min(bits, end));
            bits += step;
        }
        // The cosine alone: 1 * cosf(B + 0 * 0).
        FloatCosine::products(ones.data(), arguments.data(), zeros.data(), 0.0, cosines.data(), batch);
        for (std::size_t i = 0; i < batch; ++i) {
            const float library = std::cos(static_cast<float>(arguments[i]));
            different += static_cast<double>(library) != cosines[i] ? 1 : 0;
        }
    }
    return different;
}

class FloatCosineBits : public testing::Test {
  protected:
    void SetUp() override {
        if (!FloatCosine::isVectorised()) {
            GTEST_SKIP()
                << "This processor or C library computes cosines in another way; the engine takes the library.";
        }
    }
};

constexpr float largest = static_cast<float>(FloatCosine::largestArgument);
constexpr float oneBelow = 0x1p-13F;  // below it the cosine of every float is 1

TEST_F(FloatCosineBits, AreThoseOfTheLibraryForEveryArgument) {
    EXPECT_EQ(differences(oneBelow, largest, 1), 0);
}

TEST_F(FloatCosineBits, AreThoseOfTheLibraryNearZero) {
    EXPECT_EQ(differences(0.0F, oneBelow, 997), 0);
    EXPECT_EQ(differences(0.0F, 100 * std::numeric_limits<float>::denorm_min(), 1), 0);
}

TEST_F(FloatCosineBits, AreThoseOfTheLibraryForNegativeArguments) {
    EXPECT_EQ(differences(-0.0F, -largest, 31), 0);
}

TEST_F(FloatCosineBits, MultiplyInDoublePrecision) {
    const std::array<double, 4> A{1e8 / 3.0, -2.5, 7e-5, 0.0}, B{1.0, 2.0, 3.0, 4.0},
        C{6283.0758, 161000.6857, 0.0, -7.0};
    const double t = 0.0267;
    std::array<double, 4> products{};
    FloatCosine::products(A.data(), B.data(), C.data(), t, products.data(), products.size());
    for (std::size_t i = 0; i < 4; ++i) {
        const double step = C[i] * t;  // rounded before it is added
        EXPECT_EQ(products[i], A[i] * std::cos(static_cast<float>(B[i] + step))) << i;
    }
}

TEST(FloatCosine, IsOnlyTakenWhereTheLibraryWorksTheSameWay) {
    // An argument whose cosine has a different last bit where the library does not use fused steps.
    const volatile float telling = 0x1.1475b6p+4F;
    const bool isFused = std::cos(static_cast<float>(telling)) == -0x1.69eeep-16F;
    EXPECT_TRUE(isFused || !FloatCosine::isVectorised());
}

}  // namespace
}  // namespace quode
