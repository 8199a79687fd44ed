// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The desktop's sound, with what ringing needs.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <variant>

namespace quode {

/// A sound file, or the name of a sound of the desktop's sound theme.
using Sound = std::variant<std::filesystem::path, std::string>;

/// How loud a sound is.
struct Loudness {
    int percent = 100;               ///< of the desktop's volume, as its sliders count
    std::chrono::seconds fadeIn{0};  ///< the sound becomes louder until then
};

/// The gain so long after the sound began, decibels; not above 0.
double gainOf(const Loudness& loudness, std::chrono::milliseconds since);

/// Plays one sound at a time.
class SoundPlayer {
  public:
    virtual ~SoundPlayer() = default;

    /// Repeats a sound until `stop`, and stops the sound that played before.
    /// @param sound     a file, or the name of a sound of the theme
    /// @param fallback  played instead of a sound that cannot be played; only when it fails too, `onFailure` is called
    /// @param atMost    after this time the sound does not start again
    virtual void play(const Sound& sound, const Sound& fallback, std::chrono::seconds atMost,
                      const Loudness& loudness = {}) = 0;

    /// Stops the sound; does nothing without one.
    virtual void stop() = 0;

    /// Called with a problem, for the log.
    std::function<void(std::string_view problem)> onFailure;

    /// Called when a sound has ended without `stop`; also when it cannot be played.
    std::function<void()> onEnd;
};

}  // namespace quode
