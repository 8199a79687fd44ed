// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/AnimationClock.h"

#include <QTimer>
#include <utility>

namespace quode {
namespace {

class SystemAnimationClock final : public AnimationClock {
  public:
    Duration now() const override { return std::chrono::steady_clock::now().time_since_epoch(); }

    void wakeAfter(Duration delay, QObject& context, std::function<void()> callback) override {
        QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(delay), Qt::PreciseTimer, &context,
                           std::move(callback));
    }
};

}  // namespace

AnimationClock& systemAnimationClock() {
    static SystemAnimationClock clock;
    return clock;
}

}  // namespace quode
