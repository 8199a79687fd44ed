// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "data/zone_days.h"
#include "platform/Clock.h"

namespace quode {

/// The device's clock, which tells date and time of day as they are in the home city.
class HomeClock : public Clock {
  public:
    explicit HomeClock(std::shared_ptr<const Clock> device) : device_(std::move(device)) {}

    /// Follows the clock of a city from now on; without one it tells what the device does.
    void follow(std::optional<ZoneClock> city) { city_ = std::move(city); }

    TimePoint now() const override { return device_->now(); }
    CivilTime civilTime(TimePoint moment) const override;
    std::chrono::seconds utcOffset(TimePoint moment) const override;

    /// The name of the device's zone, whatever the city.
    std::string zoneName() const override { return device_->zoneName(); }

  private:
    std::shared_ptr<const Clock> device_;
    std::optional<ZoneClock> city_;
};

}  // namespace quode
