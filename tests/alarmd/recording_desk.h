// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "alarmd/RingDesk.h"

namespace quode::test {

/// Writes down what rings.
class RecordingDesk : public RingDesk {
  public:
    std::uint32_t show(const Ring& ring) override {
        if (beforeRing) beforeRing();
        rings.push_back(ring);
        return hasService ? ++lastNumber : 0;
    }
    void sound(const Ring& ring, std::uint32_t) override { sounds.push_back(ring.sound); }
    void silence(std::uint32_t number) override { silenced.push_back(number); }

    std::vector<Ring> rings;
    std::vector<std::string> sounds;
    std::vector<std::uint32_t> silenced;
    std::function<void()> beforeRing;
    bool hasService = true;
    std::uint32_t lastNumber = 0;
};

}  // namespace quode::test
