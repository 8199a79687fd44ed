// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/sounds/sound.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace quode::sounds {
namespace {

constexpr double loudest = 0.8;
constexpr double attack = 0.004;  // seconds in which a tone reaches its full strength
constexpr double fadeOut = 0.05;  // seconds over which the end of a sound is faded

/// A partial tone: a multiple of the ground tone, its strength, and how much faster than that it dies away.
struct Partial {
    double ratio;
    double strength;
    double haste;
};

// The partials of a struck bell: hum, prime, tierce, quint, nominal and two above.
constexpr Partial bellPartials[] = {{0.5, 0.5, 0.6}, {1.0, 1.0, 1.0},  {1.2, 0.6, 1.3}, {1.5, 0.4, 1.7},
                                    {2.0, 0.7, 2.0}, {2.67, 0.3, 3.0}, {4.0, 0.2, 4.5}};
constexpr Partial gongPartials[] = {
    {1.0, 1.0, 1.0}, {1.48, 0.6, 1.2}, {1.97, 0.5, 1.6}, {2.63, 0.4, 2.2}, {3.41, 0.25, 3.0}};
constexpr Partial fluteNote[] = {{1.0, 1.0, 1.0}, {2.0, 0.22, 1.4}, {3.0, 0.08, 2.0}};
constexpr Partial barPartials[] = {{1.0, 1.0, 1.0}, {2.76, 0.35, 2.5}, {5.4, 0.12, 5.0}};

Samples silence(double seconds) {
    return Samples(static_cast<std::size_t>(seconds * sampleRate), 0.0);
}

/// Adds a tone from `start` on (seconds) that loses all but a third of its strength every `decay` seconds.
void strike(Samples& samples, double start, double frequency, double decay, std::span<const Partial> partials) {
    const auto first = static_cast<std::size_t>(start * sampleRate);
    for (std::size_t i = first; i < samples.size(); ++i) {
        const double time = static_cast<double>(i - first) / sampleRate;
        const double rise = std::min(1.0, time / attack);
        for (const Partial& partial : partials) {
            const double phase = 2.0 * std::numbers::pi * frequency * partial.ratio * time;
            samples[i] += rise * partial.strength * std::exp(-time * partial.haste / decay) * std::sin(phase);
        }
    }
}

/// Brings the loudest sample to a fixed strength and lets the end fade.
Samples finished(Samples samples) {
    double peak = 0.0;
    for (const double sample : samples) peak = std::max(peak, std::abs(sample));
    const auto fade = static_cast<std::size_t>(fadeOut * sampleRate);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::size_t left = samples.size() - 1 - i;
        const double end = left < fade ? static_cast<double>(left) / static_cast<double>(fade) : 1.0;
        samples[i] *= loudest / peak * end;
    }
    return samples;
}

Samples chime() {
    Samples samples = silence(3.0);
    double start = 0.0;
    for (const double frequency : {659.26, 783.99, 1046.5}) {  // E5, G5, C6
        strike(samples, start, frequency, 0.7, barPartials);
        start += 0.28;
    }
    return finished(std::move(samples));
}

Samples bell() {
    Samples samples = silence(4.0);
    for (const double start : {0.0, 1.3}) strike(samples, start, 523.25, 1.1, bellPartials);  // C5
    return finished(std::move(samples));
}

Samples gong() {
    Samples samples = silence(4.5);
    strike(samples, 0.0, 130.81, 1.5, gongPartials);  // C3
    return finished(std::move(samples));
}

Samples morning() {
    Samples samples = silence(3.6);
    double start = 0.0;
    for (const double frequency : {392.0, 493.88, 587.33, 783.99}) {  // G4, B4, D5, G5
        strike(samples, start, frequency, 0.9, fluteNote);
        start += 0.45;
    }
    return finished(std::move(samples));
}

void append(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i));
}

}  // namespace

std::vector<NamedSound> allSounds() {
    return {{"bell", bell()}, {"chime", chime()}, {"gong", gong()}, {"morning", morning()}};
}

std::string wavFile(const Samples& samples) {
    constexpr std::uint32_t sampleBytes = 2;
    const auto dataBytes = static_cast<std::uint32_t>(samples.size()) * sampleBytes;
    std::string bytes = "RIFF";
    append(bytes, 36 + dataBytes, 4);
    bytes += "WAVEfmt ";
    append(bytes, 16, 4);  // length of this block
    append(bytes, 1, 2);   // PCM
    append(bytes, 1, 2);   // channels
    append(bytes, sampleRate, 4);
    append(bytes, sampleRate * sampleBytes, 4);
    append(bytes, sampleBytes, 2);
    append(bytes, 8 * sampleBytes, 2);
    bytes += "data";
    append(bytes, dataBytes, 4);
    for (const double sample : samples) {
        const auto level = static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0, 1.0) * 32767.0));
        append(bytes, static_cast<std::uint16_t>(level), sampleBytes);
    }
    return bytes;
}

}  // namespace quode::sounds
