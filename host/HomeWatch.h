// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "host/MomentWatch.h"

namespace quode::host {

/// Watches as another watch does, and also tells when the user's home city has become another one, such as by a
/// command in a terminal.
class HomeWatch : public MomentWatch {
  public:
    /// @param days     what it watches for besides
    /// @param choices  tells that the user's choices were written; most of that has nothing to do with the home city
    /// @param home     the number of the home city; nothing when there is none
    HomeWatch(std::unique_ptr<MomentWatch> days, std::unique_ptr<MomentWatch> choices,
              std::function<std::optional<int>()> home);

    void watchFor(std::optional<Clock::TimePoint> moment) override;

  private:
    void compareHome();

    std::unique_ptr<MomentWatch> days_, choices_;
    std::function<std::optional<int>()> homeNow_;
    std::optional<int> home_;  // when the watching began
};

}  // namespace quode::host
