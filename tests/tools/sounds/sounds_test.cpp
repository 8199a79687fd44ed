// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>

#include "companion/sounds.h"
#include "tools/sounds/sound.h"

namespace quode::sounds {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::VariantWith;

std::uint32_t number(const std::string& bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0;) value = value << 8U | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

TEST(Sounds, AreShortAndNeitherClippedNorFaint) {
    for (const NamedSound& sound : allSounds()) {
        EXPECT_GT(sound.samples.size(), 2U * sampleRate) << sound.name;
        EXPECT_LT(sound.samples.size(), 5U * sampleRate) << sound.name;
        double peak = 0.0;
        for (const double sample : sound.samples) peak = std::max(peak, std::abs(sample));
        EXPECT_LE(peak, 0.81) << sound.name;
        EXPECT_GT(peak, 0.5) << sound.name;
    }
}

TEST(Sounds, BeginAndEndInSilence) {
    for (const NamedSound& sound : allSounds()) {
        EXPECT_LT(std::abs(sound.samples.front()), 1e-3) << sound.name;
        EXPECT_LT(std::abs(sound.samples.back()), 1e-3) << sound.name;
    }
}

TEST(Sounds, AreTheSameEachTime) {
    const auto first = allSounds();
    const auto second = allSounds();
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(wavFile(first[i].samples), wavFile(second[i].samples)) << first[i].name;
    }
}

TEST(Sounds, AreWavFilesOfOneChannel) {
    const std::string file = wavFile({0.0, 0.5, -1.0, 2.0});
    EXPECT_EQ(file.substr(0, 4), "RIFF");
    EXPECT_EQ(number(file, 4, 4), file.size() - 8);
    EXPECT_EQ(file.substr(8, 8), "WAVEfmt ");
    EXPECT_EQ(number(file, 20, 2), 1U);
    EXPECT_EQ(number(file, 22, 2), 1U);
    EXPECT_EQ(number(file, 24, 4), 44100U);
    EXPECT_EQ(number(file, 34, 2), 16U);
    EXPECT_EQ(number(file, 40, 4), 8U);
    EXPECT_EQ(file.size(), 52U);
    EXPECT_EQ(number(file, 46, 2), 16384U);
    EXPECT_EQ(number(file, 48, 2), 0x8001U);
    EXPECT_EQ(number(file, 50, 2), 0x7FFFU) << "too loud is as loud as can be";
}

TEST(Sounds, LieInTheBundle) {
    EXPECT_THAT(bundledSounds(QUODE_BUNDLE), ElementsAre("bell", "chime", "gong", "morning"));
    for (const NamedSound& sound : allSounds()) {
        const auto file = std::filesystem::path(QUODE_BUNDLE) / "sounds" / (sound.name + ".wav");
        std::ifstream stream(file, std::ios::binary);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), wavFile(sound.samples));
        EXPECT_THAT(soundNamed(sound.name, QUODE_BUNDLE), VariantWith<std::filesystem::path>(Eq(file)));
    }
}

TEST(Sounds, MayBeFilesOrThoseOfTheTheme) {
    EXPECT_THAT(soundNamed("/home/u/adhan.ogg", QUODE_BUNDLE),
                VariantWith<std::filesystem::path>(Eq("/home/u/adhan.ogg")));
    EXPECT_THAT(soundNamed("alarm-clock-elapsed", QUODE_BUNDLE), VariantWith<std::string>(Eq("alarm-clock-elapsed")));
    EXPECT_THAT(bundledSounds("/nowhere"), testing::IsEmpty());
}

}  // namespace
}  // namespace quode::sounds
