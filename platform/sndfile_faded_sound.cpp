// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/FadedSound.h"
#include "platform/fade_in.h"

namespace quode {
namespace {

namespace fs = std::filesystem;

constexpr int mostChannels = 2;  // the order of more depends on the format
constexpr std::int64_t sampleBytes = 2, headerBytes = 44, tooManyBytes = 64LL << 20;
constexpr std::size_t blockFrames = 2048;

struct CloseSound {
    void operator()(SNDFILE* sound) const { sf_close(sound); }
};
using SoundFile = std::unique_ptr<SNDFILE, CloseSound>;

/// A file descriptor that is closed with the object.
class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;

    int number() const { return number_; }
    void close() {
        if (number_ >= 0) ::close(std::exchange(number_, -1));
    }

  private:
    int number_;
};

void append(std::vector<unsigned char>& bytes, std::uint32_t number, int count) {
    for (int index = 0; index < count; ++index) bytes.push_back(static_cast<unsigned char>(number >> (8 * index)));
}

void append(std::vector<unsigned char>& bytes, std::string_view name) {
    bytes.insert(bytes.end(), name.begin(), name.end());
}

/// What a WAV file of 16-bit samples begins with.
std::vector<unsigned char> waveHeader(const SF_INFO& format, std::int64_t dataBytes) {
    const auto data = static_cast<std::uint32_t>(dataBytes);
    const auto channels = static_cast<std::uint32_t>(format.channels),
               rate = static_cast<std::uint32_t>(format.samplerate);
    const std::uint32_t frameBytes = channels * std::uint32_t{sampleBytes};
    constexpr std::uint32_t formatBytes = 16, uncompressed = 1;
    std::vector<unsigned char> bytes;
    append(bytes, "RIFF");
    append(bytes, data + std::uint32_t{headerBytes} - 8, 4);
    append(bytes, "WAVEfmt ");
    append(bytes, formatBytes, 4);
    append(bytes, uncompressed, 2);
    append(bytes, channels, 2);
    append(bytes, rate, 4);
    append(bytes, rate * frameBytes, 4);
    append(bytes, frameBytes, 2);
    append(bytes, 8 * std::uint32_t{sampleBytes}, 2);
    append(bytes, "data");
    append(bytes, data, 4);
    return bytes;
}

/// Samples as a WAV file has them. One of 16 bits is again what it was before libsndfile made it a fraction.
void toWave(std::span<const float> samples, std::vector<unsigned char>& bytes) {
    constexpr float scale = 32768.0F;
    bytes.resize(samples.size() * sampleBytes);
    auto byte = bytes.begin();
    for (const float sample : samples) {
        const long value = std::lrint(std::clamp(sample * scale, -scale, scale - 1.0F));
        *byte++ = static_cast<unsigned char>(value);
        *byte++ = static_cast<unsigned char>(value >> 8);
    }
}

/// How many times a sound begins until a time is over.
std::int64_t timesUntil(std::chrono::seconds time, const SF_INFO& format) {
    const std::int64_t wanted = time.count() * format.samplerate;
    return std::max<std::int64_t>(1, (wanted + format.frames - 1) / format.frames);
}

class SndfileFadedSound : public FadedSound {
  public:
    SndfileFadedSound(SoundFile sound, const SF_INFO& format, const Loudness& loudness, std::int64_t times,
                      Descriptor in, Descriptor out)
        : sound_(std::move(sound)),
          format_(format),
          times_(times),
          fadeIn_(loudness, format.samplerate, format.channels),
          samples_(blockFrames * static_cast<std::size_t>(format.channels)),
          bytes_(waveHeader(format, times * format.frames * format.channels * sampleBytes)),
          in_(std::move(in)),
          out_(std::move(out)),
          writer_([this](const std::stop_token& stop) { write(stop); }) {}

    // A writer that waits for room in the pipe goes on when the rest is read, and closes the pipe.
    ~SndfileFadedSound() override {
        writer_.request_stop();
        std::array<char, 4096> rest{};
        ssize_t count = 0;
        do {
            count = ::read(in_.number(), rest.data(), rest.size());
        } while (count > 0 || (count < 0 && errno == EINTR));
    }
    SndfileFadedSound(const SndfileFadedSound&) = delete;
    SndfileFadedSound& operator=(const SndfileFadedSound&) = delete;

    fs::path path() const override { return "/proc/self/fd/" + std::to_string(in_.number()); }

  private:
    void write(const std::stop_token& stop) {
        bool isWhole = writeBytes();  // the header
        for (std::int64_t time = 0; isWhole && time < times_; ++time) isWhole = writeOnce(stop);
        out_.close();
    }

    /// Whether the sound was written from begin to end.
    bool writeOnce(const std::stop_token& stop) {
        sf_seek(sound_.get(), 0, SEEK_SET);
        std::int64_t left = format_.frames;
        while (left > 0 && !stop.stop_requested()) {
            const auto wanted = std::min<std::int64_t>(left, std::int64_t{blockFrames});
            const std::int64_t frames = sf_readf_float(sound_.get(), samples_.data(), wanted);
            if (frames <= 0) return false;
            const std::span block(samples_.data(), static_cast<std::size_t>(frames * format_.channels));
            fadeIn_.apply(block);
            toWave(block, bytes_);
            if (!writeBytes()) return false;
            left -= frames;
        }
        return left == 0;
    }

    bool writeBytes() {
        std::span<const unsigned char> rest = bytes_;
        while (!rest.empty()) {
            const ssize_t count = ::write(out_.number(), rest.data(), rest.size());
            if (count < 0 && errno != EINTR) return false;
            rest = rest.subspan(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        }
        return true;
    }

    SoundFile sound_;
    SF_INFO format_;
    std::int64_t times_;
    FadeIn fadeIn_;
    std::vector<float> samples_;
    std::vector<unsigned char> bytes_;
    Descriptor in_, out_;  // of the pipe; it can be read as long as the writer writes
    std::jthread writer_;  // the last member: it uses the others
};

}  // namespace

std::unique_ptr<FadedSound> fadedSound(const fs::path& sound, const Loudness& loudness, std::chrono::seconds atMost) {
    SF_INFO format{};
    SoundFile file(sf_open(sound.c_str(), SFM_READ, &format));
    if (!file || format.frames <= 0 || !format.seekable || format.channels > mostChannels) return nullptr;
    if (format.frames > tooManyBytes) return nullptr;  // also where the length is not known
    const std::int64_t times = timesUntil(std::min(loudness.fadeIn, atMost), format);
    if (headerBytes + times * format.frames * format.channels * sampleBytes >= tooManyBytes) return nullptr;
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) < 0) return nullptr;
    Descriptor in(ends[0]), out(ends[1]);
    try {
        return std::make_unique<SndfileFadedSound>(std::move(file), format, loudness, times, std::move(in),
                                                   std::move(out));
    } catch (const std::system_error&) {
        return nullptr;  // no thread
    }
}

}  // namespace quode
