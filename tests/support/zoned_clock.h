// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

#include "data/posix_zone.h"
#include "platform/Clock.h"

namespace quode::test {

/// A clock that a test sets, in a zone with summer time that the test may change.
class ZonedClock : public Clock {
  public:
    /// @param rule  as in the TZ environment variable, such as "CET-1CEST,M3.5.0,M10.5.0/3"
    explicit ZonedClock(const std::string& rule = "UTC0", std::string name = "UTC") { setZone(rule, std::move(name)); }

    void setZone(const std::string& rule, std::string name) {
        const std::optional<PosixZone> parsed = parsePosixZone(rule);
        if (!parsed) throw std::invalid_argument("no zone: " + rule);
        zone_ = *parsed;
        name_ = std::move(name);
    }

    TimePoint now() const override { return present; }

    std::chrono::seconds utcOffset(TimePoint moment) const override {
        return std::chrono::seconds(zone_.offsetAt(std::chrono::floor<std::chrono::seconds>(moment)));
    }

    std::string zoneName() const override { return name_; }

    CivilTime civilTime(TimePoint moment) const override {
        const auto local = std::chrono::floor<std::chrono::seconds>(moment) + utcOffset(moment);
        const auto midnight = std::chrono::floor<std::chrono::days>(local);
        const std::chrono::year_month_day date(midnight);
        const std::chrono::hh_mm_ss time(local - midnight);
        return {int(date.year()),          int(unsigned(date.month())), int(unsigned(date.day())),
                int(time.hours().count()), int(time.minutes().count()), int(time.seconds().count())};
    }

    TimePoint present = std::chrono::sys_days(std::chrono::January / 1 / 2026);

  private:
    PosixZone zone_;
    std::string name_;
};

/// A moment of UTC from a text such as "2026-03-29 01:30" or "2026-03-29 01:30:15".
inline std::chrono::sys_seconds utc(const std::string& text) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    if (std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second) < 5) {
        throw std::invalid_argument("no moment: " + text);
    }
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                                           std::chrono::day(unsigned(day))};
    return std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second);
}

}  // namespace quode::test
