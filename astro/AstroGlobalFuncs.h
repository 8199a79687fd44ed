// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "astro/VAKDate.h"

namespace quode {

/// Time arithmetic of the engine: Julian days, clock times, weekdays, summer time and the tabular Hijri calendar.
/// Functions of their arguments alone, `GetCurrentDateTime` excepted.
class AstroGlobalFuncs {
  public:
    /// Julian day of a civil date and time. The Julian calendar holds up to 14 October 1582, the Gregorian from then on.
    /// @param year   without a year 0: the year before 1 is -1
    /// @param month  1..12
    /// @param day    like hour, minute and second it may lie outside its range and carries over
    /// @return days; half a tenth of a millisecond is added so that the way back never falls a second short
    /// Source: Meeus, Astronomical Algorithms, 2nd edition, chapter 7.
    static double CalculateJulianDay(int year, int month, int day, int hour, int minute, int second);

    /// Julian day of the midnight at which a civil day begins, without the addition that `CalculateJulianDay` makes.
    static double midnightBefore(int year, int month, int day);

    /// Whether the Julian days of a day, the one before and the one after do not follow each other.
    static bool isAtChangeOfCalendar(int year, int month, int day);

    /// What `CalculateJulianDay` adds to the midnight for a whole hour, days.
    static constexpr double fractionOfHour(int hour) { return (hour * 3600.0 + secondNudge) / 86400.0; }

    /// Julian day of a record; its `MSeconds` are not read.
    static double JulianDay(const VAKDate& date);

    /// Fractional part, 0 <= result < 1, of negative numbers too.
    static double frac(double x) {
        // Without a call: the conversion truncates, and 0.0 takes the sign from a negative zero, as x - floor(x) does.
        if (!(x > -9e18 && x < 9e18)) return fracOfHuge(x);
        const double whole = static_cast<double>(static_cast<std::int64_t>(x));
        return (x < whole ? x - (whole - 1.0) : x - whole) + 0.0;
    }

    /// Splits decimal hours, after bringing them into 0..24, into whole hours, minutes and seconds (truncated).
    static void ToHMS(double hours, int& hour, int& minute, int& second);

    /// Angle of the point (x, y) in radians, 0 to 2 pi, in single precision. 0 for the point (0, 0).
    static double ZArcTan2(double x, double y);

    /// Calendar date of a Julian day. Returns the day of the month with its fraction; writes `date` only when `fill`.
    static double JulianToCalendar(double julianDay, VAKDate& date, bool fill);

    /// Weekday of a date, 0 = Sunday to 6 = Saturday.
    static int DayOfWeek(int year, int month, int day);

    /// Whether a date lies in summer time. The start day lies inside, the stop day outside. A start month that is not
    /// before the stop month is a rule of the southern hemisphere.
    /// @param startDay,stopDay      up to 30 a day of the month, counted from 0; above, a weekday:
    ///                              31 + 5 * weekday (0 = Sunday) + occurrence (0 first .. 3 fourth, 4 last in the month)
    /// @param startMonth,stopMonth  0 = January
    /// @param startDayOfMonth       receives the day of the month on which a weekday rule starts in that year; -1 for
    ///                              fixed days, invalid rules and invalid dates
    /// @param stopDayOfMonth        the same for the day on which it stops
    static bool IsDSTDay(int startDay, int startMonth, int stopDay, int stopMonth, int year, int month, int day,
                         int& startDayOfMonth, int& stopDayOfMonth);

    /// x rounded to a number of decimals, in single precision.
    static double Round(double x, int digits);

    /// The present moment in the device's calendar and time zone.
    static void GetCurrentDateTime(VAKDate& date);

    /// Tabular Hijri date of a Julian day number; only `Years`, `Months` and `Days` are set. All three are -1 for days
    /// before the Hijri era (day 1948440).
    /// Source: the civil arithmetic calendar, cycle of 30 years with 11 leap years.
    static VAKDate JulianToHicri(double julianDayNumber);

    /// Tabular Hijri date of a civil date.
    static VAKDate GregJulToHicri(int day, int month, int year);

  private:
    // Half a tenth of a millisecond in single precision; keeps later truncations from falling one second short.
    static constexpr double secondNudge = 4.999999873689376e-05;

    static double fracOfHuge(double x);
};

}  // namespace quode
