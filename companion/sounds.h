// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The sounds that an alarm can have.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/SoundPlayer.h"

namespace quode {

/// The sound of the bundle that plays in place of one that is gone or cannot be played.
inline constexpr const char* fallbackSound = "chime";

/// The names of the sounds of the bundle, in alphabetical order.
std::vector<std::string> bundledSounds(const std::filesystem::path& bundle);

/// The sound of a name: a file when the name is a path, else a sound of the bundle, else one of the desktop's sound
/// theme.
Sound soundNamed(const std::string& name, const std::filesystem::path& bundle);

}  // namespace quode
