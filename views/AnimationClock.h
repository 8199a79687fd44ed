// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <chrono>
#include <functional>

namespace quode {

/// The clock of animations.
class AnimationClock {
  public:
    using Duration = std::chrono::duration<double>;

    virtual ~AnimationClock() = default;

    /// The time since a fixed moment.
    virtual Duration now() const = 0;

    /// Calls back once after a delay, unless `context` is deleted before.
    virtual void wakeAfter(Duration delay, QObject& context, std::function<void()> callback) = 0;
};

/// The clock of the machine; it calls back through the event loop.
AnimationClock& systemAnimationClock();

}  // namespace quode
