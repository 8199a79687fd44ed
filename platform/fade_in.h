// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// How a sound becomes louder.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>

#include "platform/SoundPlayer.h"

namespace quode {

/// The part of its loudness that a sound has so long after it began, as the sliders of desktops count. It grows evenly, and is 1
/// at the end of the fade-in and after it.
double fadedPart(std::chrono::seconds fadeIn, std::chrono::duration<double> since);

/// The amplitude of a loudness between 0 and 1, as the sliders of desktops count.
double amplitudeOf(double loudness);

/// The amplitude of a loudness so long after the sound began, 1 at most.
double amplitudeAt(const Loudness& loudness, std::chrono::duration<double> since);

/// Gives the samples of a sound its loudness, block by block.
class FadeIn {
  public:
    /// @param rate  samples per second, of each channel
    FadeIn(const Loudness& loudness, int rate, int channels) : loudness_(loudness), rate_(rate), channels_(channels) {}

    /// @param samples  those after the block before: one of each channel, and so on
    void apply(std::span<float> samples);

  private:
    Loudness loudness_;
    int rate_;
    int channels_;
    std::int64_t sample_ = 0;  // of all channels, since the begin
};

}  // namespace quode
