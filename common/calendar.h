// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "astro/VAKDate.h"

/// Calendar arithmetic: Gregorian dates, Julian days, Hijri dates by the table of "common/hijri_table.h", weekdays.
/// Dates up to 4 October 1582 are of the Julian calendar. Weekdays are 0 = Sunday .. 6 = Saturday.
namespace quode::calendar {

/// The Julian day of a date and time of day. There is no year 0: year -1 is the year before year 1. The days from 5 to
/// 14 October 1582, which the calendar skipped, count as days of the Julian calendar. The result is 0.00005 s late, so
/// that a later truncation to seconds does not fall one second short.
double CalculateJulianDay(int year, int month, int day, int hour, int minute, int second);

/// The Julian day of a Gregorian record.
double GregorianDateToJulian(const VAKDate& date);

/// The date and time of day of a Julian day, with seconds truncated after a nudge of 0.00001 day. Years before the
/// third of January of year 1 (Julian day 1721425.5) come out as 1 minus the year. A Julian day that is no number or
/// lies beyond 200,000,000 days from 0 gives Years = Months = Days = -1.
VAKDate JulianToGregorian(double julianDay);

/// The Julian day of a Hijri record, 0.00005 s late like CalculateJulianDay; -1.0 when the month is not in the table.
double HijriDateToJulian(const VAKDate& date);

/// The Hijri date of a Julian day, with the time of day of JulianToGregorian. Years = Months = Days = -1 outside the
/// table: before 29 November 2008 and from 9 October 2048 on.
VAKDate JulianToHijri(double julianDay);

/// The Julian day of the first day of a Hijri month at 0h; -1.0 outside the table.
/// @param index  12 * (Hijri year - 1430) + Hijri month, 0..493
double GetHijriFirstDayOfTheMonthAsJulianDate(int index);

/// The Julian day that many minutes later.
double addMinute(int minutes, double julianDay);

/// The weekday of a Gregorian date.
int DayOfWeekWithYear(int year, int month, int day);

/// The weekday of a Hijri date; -1 when the month is not in the table.
int DayOfHijriWeekWithYear(int year, int month, int day);

/// The weekday of a Julian day; -1 when the number is no day (not finite, or beyond the range of 32 bits).
int DayOfWeekWithJulianDate(double julianDay);

/// The part of x above the next lower whole number, 0..1; 0 when x is not finite.
double frac(double x);

/// Splits hours, brought into 0..24, into hour, minute and second; seconds are truncated. All are 0 when x is not
/// finite.
void ToHMS(int& hour, int& minute, int& second, double hours);

}  // namespace quode::calendar
