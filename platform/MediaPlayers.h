// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// The programs of the desktop that play music and films.
class MediaPlayers {
  public:
    virtual ~MediaPlayers() = default;

    /// Lets those that play pause, as soon as they answer.
    virtual void pause() = 0;

    /// Resumes the players that this object paused, unless another program stopped or started them meanwhile.
    virtual void resume() = 0;
};

}  // namespace quode
