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

    /// Resumes those that it paused, except those that were stopped or started since then.
    virtual void resume() = 0;
};

}  // namespace quode
