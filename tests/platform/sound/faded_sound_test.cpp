// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <string>

#include "platform/FadedSound.h"
#include "sound_files.h"
#include "support/temporary_folder.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class FadedSounds : public testing::Test {
  protected:
    /// A sound of this test's folder.
    fs::path soundOf(const Samples& samples, Format format = Format::wav) {
        const fs::path file = folder_.path() / "sound";
        writeSound(file, samples, format);
        return file;
    }
    fs::path fileOf(const std::string& content) {
        const fs::path file = folder_.path() / "file";
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }
    /// Everything that can be read of a copy, as libcanberra does.
    Samples copyOf(const FadedSound& sound) {
        const fs::path file = folder_.path() / "copy";
        std::ofstream(file, std::ios::binary) << std::ifstream(sound.path(), std::ios::binary).rdbuf();
        return soundIn(file);
    }

  private:
    TemporaryFolder folder_;
};

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::ptrdiff_t openDescriptors() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

TEST_F(FadedSounds, BecomeLouderUntilTheFadeInIsOver) {
    const fs::path file = soundOf(tone(3.0, 44100, 2));
    const auto sound = fadedSound(file, {100, 2s}, 60s);
    ASSERT_TRUE(sound);
    const std::vector<double> loudness = loudnessOfTenths(copyOf(*sound));
    ASSERT_EQ(loudness.size(), 30);
    for (std::size_t tenth = 1; tenth < 20; ++tenth) EXPECT_GT(loudness[tenth], loudness[tenth - 1]) << tenth;
    EXPECT_LT(loudness[0], 0.05 * loudness[29]);
    EXPECT_GT(loudness[19], 0.85 * loudness[29]);
}

TEST_F(FadedSounds, KeepChannelsRateAndWhatComesAfterTheFadeIn) {
    for (const int channels : {1, 2}) {
        const Samples original = tone(3.0, 22050, channels);
        const fs::path file = soundOf(original);
        const auto sound = fadedSound(file, {100, 2s}, 60s);
        ASSERT_TRUE(sound);
        const Samples copy = copyOf(*sound);
        EXPECT_EQ(copy.rate, 22050);
        EXPECT_EQ(copy.channels, channels);
        ASSERT_EQ(copy.values.size(), original.values.size());
        EXPECT_TRUE(std::ranges::equal(copy.after(2.0), original.after(2.0)));
    }
}

TEST_F(FadedSounds, AreDecodedFromOggVorbis) {
    const fs::path file = soundOf(tone(3.0, 48000, 2), Format::ogg);
    const auto sound = fadedSound(file, {100, 2s}, 60s);
    ASSERT_TRUE(sound);
    const Samples copy = copyOf(*sound), original = soundIn(file);
    ASSERT_EQ(copy.values.size(), original.values.size());
    EXPECT_TRUE(std::ranges::equal(copy.after(2.0), original.after(2.0)));
    EXPECT_LT(loudnessOfTenths(copy).front(), 0.05 * loudnessOfTenths(original).front());
}

TEST_F(FadedSounds, RepeatAShortSoundUntilTheFadeInIsOver) {
    const Samples original = tone(0.8, 8000, 1);
    const fs::path file = soundOf(original);
    const auto sound = fadedSound(file, {100, 2s}, 60s);
    ASSERT_TRUE(sound);
    const Samples copy = copyOf(*sound);
    ASSERT_EQ(copy.values.size(), 3 * original.values.size());
    EXPECT_TRUE(std::ranges::equal(copy.after(2.0), original.after(0.4)));
    const std::vector<double> loudness = loudnessOfTenths(copy);
    for (std::size_t tenth = 1; tenth < 20; ++tenth) EXPECT_GT(loudness[tenth], loudness[tenth - 1]) << tenth;
}

TEST_F(FadedSounds, HaveTheirVolume) {
    const Samples original = tone(1.0, 8000, 2);
    const auto sound = fadedSound(soundOf(original), {50, 0s}, 60s);
    ASSERT_TRUE(sound);
    const Samples copy = copyOf(*sound);
    ASSERT_EQ(copy.values.size(), original.values.size()) << "without fade-in it is not repeated";
    for (std::size_t index = 0; index < copy.values.size(); ++index) {
        ASSERT_NEAR(copy.values[index], 0.125 * original.values[index], 0.5) << index;
    }
}

TEST_F(FadedSounds, DoNotRepeatLongerThanTheSoundMay) {
    const Samples original = tone(0.8, 8000, 1);
    const fs::path file = soundOf(original);
    const auto sound = fadedSound(file, {100, 20s}, 1s);
    ASSERT_TRUE(sound);
    EXPECT_EQ(copyOf(*sound).values.size(), 2 * original.values.size());
}

TEST_F(FadedSounds, AreNotMadeOfWhatIsNoSound) {
    EXPECT_FALSE(fadedSound(fileOf(""), {100, 2s}, 60s));
    EXPECT_FALSE(fadedSound(fileOf("not a sound, but a text"), {100, 2s}, 60s));
    EXPECT_FALSE(fadedSound(fileOf("missing").parent_path() / "missing", {100, 2s}, 60s));
    EXPECT_FALSE(fadedSound(fileOf("folder").parent_path(), {100, 2s}, 60s));
    const std::string wav = contentOf(soundOf(tone(1.0, 8000, 1))),
                      ogg = contentOf(soundOf(tone(1.0, 8000, 1), Format::ogg));
    EXPECT_FALSE(fadedSound(fileOf(wav.substr(0, 30)), {100, 2s}, 60s));
    EXPECT_FALSE(fadedSound(fileOf(wav.substr(0, 44)), {100, 2s}, 60s)) << "no samples";
    EXPECT_FALSE(fadedSound(fileOf(ogg.substr(0, 40)), {100, 2s}, 60s));
    EXPECT_FALSE(fadedSound(soundOf(tone(1.0, 8000, 6)), {100, 2s}, 60s)) << "the order of its channels is not known";
}

TEST_F(FadedSounds, EndWhereTheSoundIsDamaged) {
    std::string ogg = contentOf(soundOf(tone(30.0, 8000, 1), Format::ogg));
    std::fill(ogg.begin() + std::ssize(ogg) / 2, ogg.begin() + std::ssize(ogg) * 3 / 4, 'x');
    const auto sound = fadedSound(fileOf(ogg), {100, 1s}, 60s);
    ASSERT_TRUE(sound);
    EXPECT_GT(copyOf(*sound).values.size(), 4000);
}

// libcanberra plays no WAV file of 64 MB.
TEST_F(FadedSounds, AreNotMadeOfASoundThatIsTooLong) {
    const fs::path file = soundOf(tone(1.0, 8000, 1));
    resizeWave(file, (64U << 20U) - 46);
    EXPECT_TRUE(fadedSound(file, {100, 2s}, 60s));
    resizeWave(file, (64U << 20U) - 44);
    EXPECT_FALSE(fadedSound(file, {100, 2s}, 60s));
    resizeWave(file, 600U << 20U);
    EXPECT_FALSE(fadedSound(file, {100, 2s}, 60s));
}

TEST_F(FadedSounds, LeaveNothingBehindWhenTheyEndEarly) {
    const fs::path file = soundOf(tone(10.0, 44100, 2));
    const std::ptrdiff_t before = openDescriptors();
    for (int time = 0; time < 20; ++time) {
        const auto sound = fadedSound(file, {100, 20s}, 60s);
        ASSERT_TRUE(sound);
        EXPECT_GT(openDescriptors(), before);
        std::string some(std::size_t(time) * 5000, ' ');
        std::ifstream reader(sound->path(), std::ios::binary);
        EXPECT_TRUE(reader.read(some.data(), std::ssize(some)));
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(FadedSounds, AreForThisProcessAlone) {
    const auto sound = fadedSound(soundOf(tone(1.0, 8000, 1)), {100, 2s}, 60s);
    ASSERT_TRUE(sound);
    struct stat status {};
    ASSERT_EQ(stat(sound->path().c_str(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
    EXPECT_EQ(status.st_mode & 0077U, 0U);
}

}  // namespace
}  // namespace quode::test
