// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "alarmd/RingDesk.h"

namespace quode::test {

/// Writes down what rings.
class RecordingDesk : public RingDesk {
  public:
    std::string run() override { return hasService ? service : ""; }

    void show(const Ring& ring, NotificationService::Answer answered) override {
        if (beforeRing) beforeRing();
        if (hasService) rings.push_back(ring);
        pending.push_back(std::move(answered));
        if (!isSlow) answer();
    }
    void sound(const Ring& ring) override { sounds.push_back(ring.sound); }
    void silence(const AlarmOccurrence& alarm) override { silenced.push_back(alarm.code); }
    void close(const NotificationId& notification) override { closed.push_back(notification.number); }
    void warn(std::string_view message) override { warnings += std::string(message) + "\n"; }

    /// Answers all that was asked.
    void answer() {
        for (const auto& each : std::exchange(pending, {})) {
            each(hasService ? std::optional(NotificationId{service, ++lastNumber}) : std::nullopt);
        }
    }

    std::vector<Ring> rings;  ///< those that a service showed
    std::vector<std::string> sounds;
    std::vector<int> silenced;
    std::vector<std::uint32_t> closed;
    std::vector<NotificationService::Answer> pending;
    std::function<void()> beforeRing;
    std::string warnings;
    bool hasService = true;
    bool isSlow = false;  ///< it answers when told to
    std::string service = "service-1";
    std::uint32_t lastNumber = 0;
};

}  // namespace quode::test
