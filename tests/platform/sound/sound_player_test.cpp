// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What is heard through libcanberra: its driver for ALSA plays into a file, faster than a sound card.
#include <canberra.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <systemd/sd-event.h>

#include <cstring>
#include <fstream>
#include <string>

#include "platform/FadedSound.h"
#include "platform/canberra_sound_player.h"
#include "platform/event_loop.h"
#include "sound_files.h"
#include "support/scoped_variable.h"
#include "support/temporary_folder.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// Keeps this process from opening more files, as long as it lives.
class MostDescriptors {
  public:
    explicit MostDescriptors(rlim_t count) {
        getrlimit(RLIMIT_NOFILE, &before_);
        const rlimit limit{count, before_.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~MostDescriptors() { setrlimit(RLIMIT_NOFILE, &before_); }
    MostDescriptors(const MostDescriptors&) = delete;
    MostDescriptors& operator=(const MostDescriptors&) = delete;

  private:
    rlimit before_{};
};

/// The driver of libcanberra stays loaded after the first test: its threads may still return from it when the last player is gone.
struct LoadedDriver {
    LoadedDriver() {
        static ca_context* context = nullptr;
        if (context == nullptr && ca_context_create(&context) == CA_SUCCESS) ca_context_open(context);
    }
};

class HeardSound : public testing::Test {
  protected:
    HeardSound() {
        std::ofstream(configuration()) << "pcm.!default { type file  format raw  file \"" << heardFile().string()
                                       << "\"  slave.pcm { type null } }\n";
        renewPlayer();
    }

    void renewPlayer() {
        player.reset();  // waits until libcanberra has closed its files
        player = canberraSoundPlayer(loop.get());
        player->onEnd = [this] { hasEnded = true; };
        player->onFailure = [this](std::string_view text) { problem = text; };
    }

    fs::path soundOf(const char* name, const Samples& samples, Format format = Format::wav) {
        fs::path file = folder.path() / name;
        writeSound(file, samples, format);
        return file;
    }

    void playToTheEnd() {
        const auto latest = std::chrono::steady_clock::now() + 20s;
        while (!hasEnded && std::chrono::steady_clock::now() < latest) sd_event_run(loop.get(), 1'000'000);
        EXPECT_TRUE(hasEnded) << "it did not end in time";
    }

    /// The samples that went to the sound card since it was opened last.
    Samples heard(int rate, int channels) const {
        std::ifstream stream(heardFile(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(stream), {});
        Samples samples{rate, channels, std::vector<std::int16_t>(bytes.size() / 2)};
        std::memcpy(samples.values.data(), bytes.data(), 2 * samples.values.size());
        return samples;
    }

    fs::path configuration() const { return folder.path() / "asound.conf"; }
    fs::path heardFile() const { return folder.path() / "heard"; }

    TemporaryFolder folder;
    ScopedVariable driver{"CANBERRA_DRIVER", "alsa"}, alsa{"ALSA_CONFIG_PATH", configuration().string()};
    LoadedDriver loaded;
    EventLoop loop = newEventLoop();
    std::unique_ptr<SoundPlayer> player;
    bool hasEnded = false;
    std::string problem;
};

TEST_F(HeardSound, OfARecordingFadesInWhileItPlays) {
    const Samples original = tone(4.0, 44100, 2);
    player->play(soundOf("recording", original), std::string("none"), 0s, {100, 2s});
    playToTheEnd();
    EXPECT_EQ(problem, "");
    const Samples samples = heard(44100, 2);
    ASSERT_EQ(samples.values.size(), original.values.size());
    const std::vector<double> loudness = loudnessOfTenths(samples);
    for (std::size_t tenth = 1; tenth < 20; ++tenth) EXPECT_GT(loudness[tenth], loudness[tenth - 1]) << tenth;
    EXPECT_TRUE(std::ranges::equal(samples.after(2.0), original.after(2.0)));
}

TEST_F(HeardSound, WithoutFadeInIsTheSoundItself) {
    const Samples original = tone(1.0, 44100, 1);
    player->play(soundOf("sound", original), std::string("none"), 0s);
    playToTheEnd();
    EXPECT_EQ(heard(44100, 1).values, original.values);
}

TEST_F(HeardSound, IsTheSoundItselfWhereItCannotFade) {
    constexpr std::uint32_t bytes = 33U << 20U;  // the copy has two for each
    const fs::path recording = soundOf("recording", tone(1.0, 8000, 1), Format::wavOfBytes);
    resizeWave(recording, bytes);
    ASSERT_FALSE(fadedSound(recording, {100, 2s}, 60s));
    player->play(recording, std::string("none"), 0s, {100, 2s});
    playToTheEnd();
    EXPECT_EQ(problem, "");
    EXPECT_EQ(fs::file_size(heardFile()), bytes);
}

// The copy needs three descriptors more: where they are missing, the sound is played without it.
TEST_F(HeardSound, PlaysWithTheFewestDescriptorsThatTheSoundNeeds) {
    std::ofstream(configuration())
        << "pcm.!default { type null }\n";  // it needs few, and reports when they are missing
    const fs::path sound = soundOf("sound", tone(0.5, 8000, 1));
    const auto isPlayed = [&](rlim_t descriptors, const Loudness& loudness) {
        renewPlayer();
        const MostDescriptors limit(descriptors);
        problem.clear();
        hasEnded = false;
        player->play(sound, std::string("none"), 0s, loudness);
        playToTheEnd();
        return problem.empty();
    };
    rlim_t fewest = 3;
    while (!isPlayed(fewest, {100})) ASSERT_LT(++fewest, 500);
    for (rlim_t more = 0; more < 10; ++more) EXPECT_TRUE(isPlayed(fewest + more, {100, 2s})) << more;
}

TEST_F(HeardSound, IsTheOtherOneWhereTheSoundIsDamaged) {
    const Samples other = tone(0.5, 8000, 1);
    const fs::path damaged = folder.path() / "damaged";
    std::ofstream(damaged) << "no sound";
    player->play(damaged, soundOf("other", other), 0s, {100, 2s});
    playToTheEnd();
    EXPECT_EQ(problem, "");
    EXPECT_EQ(heard(8000, 1).values, other.values);
}

TEST_F(HeardSound, RepeatsAtItsFullLoudnessAfterTheFadeIn) {
    const Samples original = tone(0.5, 8000, 1);
    player->play(soundOf("sound", original), std::string("none"), 1s, {100, 1s});
    playToTheEnd();
    EXPECT_EQ(heard(8000, 1).values, original.values) << "the file has what was played last";
}

// ALSA does not take the gain of a stream.
TEST_F(HeardSound, HasItsVolumeInItsSamples) {
    const Samples original = tone(0.5, 8000, 1);
    const fs::path sound = soundOf("sound", original);
    for (const std::chrono::seconds fadeIn : {0s, 1s}) {
        hasEnded = false;
        renewPlayer();
        player->play(sound, std::string("none"), 1s, {50, fadeIn});
        playToTheEnd();
        EXPECT_EQ(problem, "");
        const Samples last = heard(8000, 1);
        ASSERT_EQ(last.values.size(), original.values.size()) << "the repetition that was played last";
        for (std::size_t index = 0; index < last.values.size(); ++index) {
            ASSERT_NEAR(last.values[index], 0.125 * original.values[index], 0.5) << index;
        }
    }
}

TEST_F(HeardSound, StopsAtOnceAndCanBeginAgain) {
    const fs::path recording = soundOf("recording", tone(30.0, 44100, 2));
    for (int time = 0; time < 5; ++time) {
        const auto begin = std::chrono::steady_clock::now();
        player->play(recording, std::string("none"), 60s, {100, 20s});
        sd_event_run(loop.get(), 5000);
        player->stop();
        EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
    }
    EXPECT_FALSE(hasEnded);
    player->play(soundOf("sound", tone(1.0, 8000, 1)), std::string("none"), 0s, {100, 2s});
    playToTheEnd();
    EXPECT_EQ(problem, "");
}

TEST_F(HeardSound, EndsWithThePlayer) {
    player->play(soundOf("recording", tone(30.0, 44100, 2)), std::string("none"), 60s, {100, 20s});
    const auto begin = std::chrono::steady_clock::now();
    player.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

}  // namespace
}  // namespace quode::test
