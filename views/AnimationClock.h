// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <chrono>
#include <functional>

namespace quode {

/// The time that animations run by.
class AnimationClock {
  public:
    using Duration = std::chrono::duration<double>;

    virtual ~AnimationClock() = default;

    /// The time since some moment that stays the same.
    virtual Duration now() const = 0;

    /// Calls back once, when the time has passed, unless `context` is gone by then.
    virtual void wakeAfter(Duration delay, QObject& context, std::function<void()> callback) = 0;
};

/// The clock of the machine, which calls back through the event loop.
AnimationClock& systemAnimationClock();

}  // namespace quode
