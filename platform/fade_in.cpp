// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/fade_in.h"

#include <algorithm>
#include <cmath>

#include "platform/SoundPlayer.h"

namespace quode {

// A sound is soft at first, but heard.
double fadedPart(std::chrono::seconds fadeIn, std::chrono::duration<double> since) {
    constexpr double first = 0.3;
    if (since >= fadeIn) return 1.0;
    return std::max(first, first + (1.0 - first) * (since / fadeIn));
}

// Sliders of desktops count the third root of the amplitude.
double amplitudeOf(double loudness) {
    return loudness * loudness * loudness;
}

double amplitudeAt(const Loudness& loudness, std::chrono::duration<double> since) {
    return amplitudeOf(loudness.percent / 100.0 * fadedPart(loudness.fadeIn, since));
}

double gainOf(const Loudness& loudness, std::chrono::milliseconds since) {
    constexpr double decibelsOfTenfold = 20.0;
    return std::min(0.0, decibelsOfTenfold * std::log10(amplitudeAt(loudness, since)));
}

void FadeIn::apply(std::span<float> samples) {
    for (float& sample : samples) {
        const std::int64_t frame = sample_++ / channels_;
        const std::chrono::duration<double> since(static_cast<double>(frame) / rate_);
        sample *= static_cast<float>(amplitudeAt(loudness_, since));
    }
}

}  // namespace quode
