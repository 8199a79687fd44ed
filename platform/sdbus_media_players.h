// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-event.h>

#include <memory>

#include "platform/MediaPlayers.h"

namespace quode {

/// The players of the session bus (MPRIS, org.mpris.MediaPlayer2.*). Nothing waits for their answers; the loop takes them. The
/// destructor lets those go on that are still paused.
std::unique_ptr<MediaPlayers> sdBusMediaPlayers(sd_event* loop);

}  // namespace quode
