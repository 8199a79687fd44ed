// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// How a sound becomes louder.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>

namespace quode {

/// The part of its loudness that a sound has so long after it began, as the sliders of desktops count. It grows evenly, and is 1
/// at the end of the fade-in and after it.
double fadedPart(std::chrono::seconds fadeIn, std::chrono::duration<double> since);

/// The amplitude of a loudness between 0 and 1, as the sliders of desktops count.
double amplitudeOf(double loudness);

/// Lets the samples of a sound fade in, block by block.
class FadeIn {
  public:
    /// @param rate  samples per second, of each channel
    FadeIn(std::chrono::seconds fadeIn, int rate, int channels) : fadeIn_(fadeIn), rate_(rate), channels_(channels) {}

    /// @param samples  those after the block before: one of each channel, and so on
    void apply(std::span<float> samples);

  private:
    std::chrono::seconds fadeIn_;
    int rate_;
    int channels_;
    std::int64_t sample_ = 0;  // of all channels, since the begin
};

}  // namespace quode
