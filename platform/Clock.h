// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace quode {

/// A moment as date and time of a local clock.
struct CivilTime {
    int year = 0;
    int month = 0;   ///< 1..12
    int day = 0;     ///< 1..31
    int hour = 0;    ///< 0..23
    int minute = 0;  ///< 0..59
    int second = 0;  ///< 0..60

    friend bool operator==(const CivilTime&, const CivilTime&) = default;
};

/// The device's clock and its time zone.
class Clock {
  public:
    /// Microseconds: finer than any shown value, with a range beyond every year of the calendar.
    using TimePoint = std::chrono::sys_time<std::chrono::microseconds>;

    virtual ~Clock() = default;

    /// The current moment.
    virtual TimePoint now() const = 0;

    /// The Gregorian date and the time of day of a moment in the device's zone.
    virtual CivilTime civilTime(TimePoint moment) const = 0;

    /// The offset of the device's zone from UTC at a moment; positive in the east, summer time included.
    virtual std::chrono::seconds utcOffset(TimePoint moment) const = 0;

    /// The name of the device's zone in the time-zone database, such as "Europe/Istanbul"; empty when it has none.
    virtual std::string zoneName() const = 0;
};

}  // namespace quode
