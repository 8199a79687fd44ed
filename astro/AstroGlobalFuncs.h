// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "astro/VAKDate.h"

namespace quode {

/// Time arithmetic of the engine: Julian days, clock times, weekdays, summer time and the tabular Hijri calendar.
/// Pure functions, except `GetCurrentDateTime`. Nothing throws.
///
/// @code
///   const double jd = quode::AstroGlobalFuncs::CalculateJulianDay(2026, 3, 21, 12, 0, 0);  // year, month, day
///   quode::VAKDate date;
///   quode::AstroGlobalFuncs::JulianToCalendar(jd, date, true);                             // 2026-03-21 12:00:00
///   const quode::VAKDate hijri = quode::AstroGlobalFuncs::GregJulToHicri(21, 3, 2026);     // day, month, year
/// @endcode
///
/// Fixed names: all, except `midnightBefore`, `isAtChangeOfCalendar` and `fractionOfHour`.
class AstroGlobalFuncs {
  public:
    /// Julian day of a civil date and time. The Julian calendar holds up to 14 October 1582, the Gregorian from then on.
    /// @param year                    without a year 0: the year before 1 is -1
    /// @param month                   1..12
    /// @param day,hour,minute,second  values outside their ranges carry over
    /// @return days; 0.05 milliseconds are added so that the conversion back never falls a second short
    /// Source: J. Meeus, Astronomical Algorithms, 2nd edition, chapter 7, equation (7.1).
    static double CalculateJulianDay(int year, int month, int day, int hour, int minute, int second);

    /// Julian day of the midnight at which a civil day begins, without the addition that `CalculateJulianDay` makes.
    static double midnightBefore(int year, int month, int day);

    /// True when the days before and after a day belong to different calendars, as in October 1582: their Julian days
    /// are not consecutive.
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

    /// Angle of the point (x, y) in radians, 0 to 2 pi, in single precision. 0 for the point (0, 0). Note the order of
    /// the parameters.
    static double ZArcTan2(double x, double y);

    /// Calendar date of a Julian day.
    /// @param date  receives date and time of day, seconds truncated; `MSeconds` stays
    /// @param fill  false: `date` stays as it is
    /// @return the day of the month with its fraction
    /// Source: J. Meeus, Astronomical Algorithms, 2nd edition, chapter 7.
    static double JulianToCalendar(double julianDay, VAKDate& date, bool fill);

    /// Weekday of a date, 0 = Sunday to 6 = Saturday.
    static int DayOfWeek(int year, int month, int day);

    /// Whether a date lies in summer time. The start day lies inside, the stop day outside. A start month that is not
    /// before the stop month is a rule of the southern hemisphere.
    /// @param startDay,stopDay      up to 30: a day of the month, counted from 0; above: a weekday as
    ///                              31 + 5 * weekday (0 = Sunday) + occurrence (0 first .. 3 fourth, 4 last in the month)
    /// @param startMonth,stopMonth  0 = January
    /// @param startDayOfMonth       receives the day of the month on which a weekday rule starts in that year; -1 for
    ///                              fixed days, invalid rules and invalid dates
    /// @param stopDayOfMonth        the same for the day on which it stops
    static bool IsDSTDay(int startDay, int startMonth, int stopDay, int stopMonth, int year, int month, int day,
                         int& startDayOfMonth, int& stopDayOfMonth);

    /// A number rounded to a count of decimals, in single precision; halves away from zero.
    static double Round(double x, int digits);

    /// The current date and time in the time zone of the process; `MSeconds` becomes 0.
    static void GetCurrentDateTime(VAKDate& date);

    /// Tabular Hijri date of a Julian day number; only `Years`, `Months` and `Days` are set. All three are -1 for days
    /// before the Hijri era (day 1948440).
    /// Source: the arithmetic calendar with 11 leap years in 30; Explanatory Supplement to the Astronomical Almanac
    /// (1992), chapter 12.
    static VAKDate JulianToHicri(double julianDayNumber);

    /// Tabular Hijri date of a civil date.
    static VAKDate GregJulToHicri(int day, int month, int year);

  private:
    // 0.05 milliseconds in single precision; keeps later truncations from falling one second short.
    static constexpr double secondNudge = 4.999999873689376e-05;

    static double fracOfHuge(double x);
};

}  // namespace quode
