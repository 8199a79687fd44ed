// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/fade_in.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/SoundPlayer.h"

namespace quode::test {
namespace {

using namespace std::chrono_literals;

constexpr int rate = 1000;

/// What becomes of samples that all are 1.
std::vector<float> faded(std::size_t count, int channels, std::size_t block) {
    std::vector<float> samples(count, 1.0F);
    FadeIn fadeIn({100, 2s}, rate, channels);
    for (std::size_t begin = 0; begin < count; begin += block) {
        fadeIn.apply(std::span(samples).subspan(begin, std::min(block, count - begin)));
    }
    return samples;
}

TEST(FadeIn, RisesWithEverySampleUntilItIsOver) {
    const std::vector<float> samples = faded(3 * rate, 1, 3 * rate);
    EXPECT_GT(samples.front(), 0.01F) << "it is heard from the beginning";
    EXPECT_LT(samples.front(), 0.1F);
    for (std::size_t index = 1; index <= 2 * rate; ++index) EXPECT_GT(samples[index], samples[index - 1]) << index;
}

TEST(FadeIn, LeavesWhatComesAfterIt) {
    const std::vector<float> samples = faded(3 * rate, 1, 3 * rate);
    EXPECT_EQ(std::vector<float>(samples.begin() + 2 * rate, samples.end()), std::vector<float>(rate, 1.0F));
}

TEST(FadeIn, FadesAllChannelsTogether) {
    const std::vector<float> samples = faded(6 * rate, 2, 6 * rate), one = faded(3 * rate, 1, 3 * rate);
    for (std::size_t frame = 0; frame < one.size(); ++frame) {
        EXPECT_EQ(samples[2 * frame], one[frame]);
        EXPECT_EQ(samples[2 * frame + 1], one[frame]);
    }
}

TEST(FadeIn, DoesNotDependOnTheBlocks) {
    EXPECT_EQ(faded(6 * rate, 2, 14), faded(6 * rate, 2, 6 * rate));
    EXPECT_EQ(faded(6 * rate, 2, 1), faded(6 * rate, 2, 6 * rate));
}

// A sound that cannot be copied becomes louder with each repetition, by the same law.
TEST(FadeIn, AgreesWithTheGainOfRepetitions) {
    const std::vector<float> samples = faded(3 * rate, 1, 3 * rate);
    for (const std::size_t frame : {std::size_t{0}, std::size_t{700}, std::size_t{1999}, std::size_t{2500}}) {
        const double gain = gainOf({100, 2s}, std::chrono::milliseconds(frame));
        EXPECT_NEAR(20.0 * std::log10(samples[frame]), gain, 0.001) << frame;
    }
}

}  // namespace
}  // namespace quode::test
