// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "platform/SoundPlayer.h"

namespace quode {

/// A copy of a sound file that has a loudness in its samples, and so can become louder while it plays. It is not stored anywhere:
/// a thread writes it into a pipe just before it is played.
class FadedSound {
  public:
    virtual ~FadedSound() = default;

    /// Where the copy can be read, once and by this process alone, as long as the object lives: a WAV file with the channels and
    /// the rate of the sound. A sound that is shorter than the fade-in is repeated until that is over.
    virtual std::filesystem::path path() const = 0;
};

/// The copy of a sound with a loudness.
/// @param atMost  after this time the sound is not repeated
/// @return        nothing where the sound cannot be decoded, has more than two channels, or where its copy would be longer than
///                libcanberra plays: 64 MB, six minutes in the quality of a CD
std::unique_ptr<FadedSound> fadedSound(const std::filesystem::path& sound, const Loudness& loudness,
                                       std::chrono::seconds atMost);

}  // namespace quode
