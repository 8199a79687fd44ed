// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The desktop's sound, as far as ringing needs it.
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

class SoundPlayer {
  public:
    virtual ~SoundPlayer() = default;

    /// Plays a sound again and again until `stop`; it does not begin again once `atMost` has passed. What played before
    /// is stopped.
    /// fallback   played instead of a sound that cannot be played. When that fails too it is reported to `onFailure`,
    ///            not otherwise: the notification is there.
    virtual void play(const Sound& sound, const Sound& fallback, std::chrono::seconds atMost) = 0;

    virtual void stop() = 0;

    /// Receives what went wrong, for the log.
    std::function<void(std::string_view problem)> onFailure;
};

}  // namespace quode
