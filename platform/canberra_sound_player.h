// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-event.h>

#include <memory>

#include "platform/SoundPlayer.h"

namespace quode {

/// Plays sounds with libcanberra: sounds of the desktop's theme, and WAV and Ogg Vorbis files. The end of a sound wakes the
/// loop.
std::unique_ptr<SoundPlayer> canberraSoundPlayer(sd_event* loop);

}  // namespace quode
