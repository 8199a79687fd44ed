// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Sounds for tests, as files and as samples.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace quode::test {

/// A sound as its samples, those of all channels in turn.
struct Samples {
    int rate = 0;
    int channels = 0;
    std::vector<std::int16_t> values;

    std::span<const std::int16_t> after(double seconds) const;
};

enum class Format { wav, wavOfBytes, ogg };

/// A tone that is as loud at the end as it was at the begin; each channel has its own height.
Samples tone(double seconds, int rate, int channels);

void writeSound(const std::filesystem::path& file, const Samples& sound, Format format = Format::wav);

/// Gives a WAV file so many bytes of samples, most of which take no room on the disk.
void resizeWave(const std::filesystem::path& file, std::uint32_t bytes);

/// The samples of a sound file; none when it is no such file.
Samples soundIn(const std::filesystem::path& file);

/// How loud each tenth of a second is: the root of the mean square of its samples.
std::vector<double> loudnessOfTenths(const Samples& sound);

}  // namespace quode::test
