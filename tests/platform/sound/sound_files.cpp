// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "sound_files.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <numbers>

namespace quode::test {

std::span<const std::int16_t> Samples::after(double seconds) const {
    return std::span(values).subspan(static_cast<std::size_t>(std::lround(seconds * rate) * channels));
}

Samples tone(double seconds, int rate, int channels) {
    constexpr double strength = 20000.0, height = 440.0;
    Samples made{rate, channels, {}};
    for (long frame = 0; frame < std::lround(seconds * rate); ++frame) {
        for (int channel = 0; channel < channels; ++channel) {
            const double turns = height * (channel + 1) * double(frame) / rate;
            made.values.push_back(std::int16_t(std::lround(strength * std::sin(2.0 * std::numbers::pi * turns))));
        }
    }
    return made;
}

namespace {

int formatOf(Format format) {
    switch (format) {
        case Format::wavOfBytes:
            return SF_FORMAT_WAV | SF_FORMAT_PCM_U8;
        case Format::ogg:
            return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
        default:
            return SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    }
}

}  // namespace

void writeSound(const std::filesystem::path& file, const Samples& sound, Format format) {
    SF_INFO info{};
    info.samplerate = sound.rate;
    info.channels = sound.channels;
    info.format = formatOf(format);
    SNDFILE* const opened = sf_open(file.c_str(), SFM_WRITE, &info);
    // In parts: the encoder of Ogg Vorbis keeps on its stack what it is given at once.
    const auto count = static_cast<sf_count_t>(sound.values.size());
    const sf_count_t part = 1024L * sound.channels;
    for (sf_count_t begin = 0; begin < count; begin += part) {
        sf_write_short(opened, sound.values.data() + begin, std::min(part, count - begin));
    }
    sf_close(opened);
}

void resizeWave(const std::filesystem::path& file, std::uint32_t bytes) {
    constexpr std::uint32_t headerBytes = 44;
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    const auto put = [&](std::streamoff place, std::uint32_t number) {
        stream.seekp(place);
        for (int index = 0; index < 4; ++index) stream.put(char(number >> (8 * index)));
    };
    put(4, headerBytes - 8 + bytes);
    put(headerBytes - 4, bytes);
    stream.close();
    std::filesystem::resize_file(file, headerBytes + bytes);
}

Samples soundIn(const std::filesystem::path& file) {
    SF_INFO info{};
    SNDFILE* const opened = sf_open(file.c_str(), SFM_READ, &info);
    Samples read{info.samplerate, info.channels, {}};
    if (opened == nullptr) return read;
    std::vector<float> values(static_cast<std::size_t>(info.frames * info.channels));
    sf_read_float(opened, values.data(), static_cast<sf_count_t>(values.size()));
    sf_close(opened);
    for (const float value : values) read.values.push_back(std::int16_t(std::lrint(value * 32768.0F)));
    return read;
}

std::vector<double> loudnessOfTenths(const Samples& sound) {
    std::vector<double> loudness;
    const auto tenth = static_cast<std::size_t>(sound.rate / 10 * sound.channels);
    for (std::size_t begin = 0; begin + tenth <= sound.values.size(); begin += tenth) {
        double sum = 0.0;
        for (const std::int16_t value : std::span(sound.values).subspan(begin, tenth)) sum += double(value) * value;
        loudness.push_back(std::sqrt(sum / double(tenth)));
    }
    return loudness;
}

}  // namespace quode::test
