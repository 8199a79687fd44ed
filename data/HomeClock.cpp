// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/HomeClock.h"

namespace quode {

CivilTime HomeClock::civilTime(TimePoint moment) const {
    if (!city_) return device_->civilTime(moment);
    const auto local = std::chrono::floor<std::chrono::seconds>(moment) + utcOffset(moment);
    const auto midnight = std::chrono::floor<std::chrono::days>(local);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss time(local - midnight);
    return {int(date.year()),          int(unsigned(date.month())), int(unsigned(date.day())),
            int(time.hours().count()), int(time.minutes().count()), int(time.seconds().count())};
}

std::chrono::seconds HomeClock::utcOffset(TimePoint moment) const {
    if (!city_) return device_->utcOffset(moment);
    return std::chrono::seconds(city_->offsetAt(std::chrono::floor<std::chrono::seconds>(moment)));
}

}  // namespace quode
