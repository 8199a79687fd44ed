// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <ctime>

#include "platform/system_platform.h"
#include "platform/zone_name.h"

namespace quode {
namespace {

class SystemClock : public Clock {
  public:
    TimePoint now() const override {
        return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
    }

    CivilTime civilTime(TimePoint moment) const override {
        const std::tm local = localTime(moment);
        return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
    }

    std::chrono::seconds utcOffset(TimePoint moment) const override {
        return std::chrono::seconds(localTime(moment).tm_gmtoff);
    }

    std::string zoneName() const override { return zoneNameFrom(processEnvironment()); }

  private:
    static std::tm localTime(TimePoint moment) {
        const auto seconds = std::chrono::floor<std::chrono::seconds>(moment.time_since_epoch());
        const auto time = static_cast<std::time_t>(seconds.count());
        std::tm local{};
        tzset();  // applies a change of the zone while the program runs
        localtime_r(&time, &local);
        return local;
    }
};

}  // namespace

std::shared_ptr<Clock> systemClock() {
    return std::make_shared<SystemClock>();
}

}  // namespace quode
