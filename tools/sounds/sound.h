// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quode::sounds {

inline constexpr int sampleRate = 44100;  // per second, one channel

/// Samples of -1..1.
using Samples = std::vector<double>;

/// One of the bundle's sounds.
struct NamedSound {
    std::string name;
    Samples samples;
};

/// All sounds of the bundle, computed from sines alone: the same ones each time. They begin and end in silence.
std::vector<NamedSound> allSounds();

/// The bytes of a WAV file, 16 bits per sample.
std::string wavFile(const Samples& samples);

}  // namespace quode::sounds
