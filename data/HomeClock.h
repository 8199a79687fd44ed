// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "data/zone_clock.h"
#include "platform/Clock.h"

namespace quode {

/// The device's clock with date, time of day and offset of the home city.
class HomeClock : public Clock {
  public:
    /// @param device  the device's clock, not null
    explicit HomeClock(std::shared_ptr<const Clock> device) : device_(std::move(device)) {}

    /// Uses the clock of a city from now on; without one that of the device.
    void follow(std::optional<ZoneClock> city) { city_ = std::move(city); }

    TimePoint now() const override { return device_->now(); }
    CivilTime civilTime(TimePoint moment) const override;
    std::chrono::seconds utcOffset(TimePoint moment) const override;

    /// The name of the device's zone, not the city's.
    std::string zoneName() const override { return device_->zoneName(); }

  private:
    std::shared_ptr<const Clock> device_;
    std::optional<ZoneClock> city_;
};

}  // namespace quode
