// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "astro/VAKDate.h"

/// Calendar arithmetic: Gregorian dates, Julian days, Hijri dates by the table of "common/hijri_table.h", weekdays.
/// Dates up to 4 October 1582 are of the Julian calendar. Weekdays are 0 = Sunday to 6 = Saturday. Nothing throws.
namespace quode::calendar {

/// The Julian day of a date and time of day. There is no year 0: year -1 is the year before year 1. The days from 5 to
/// 14 October 1582, which the calendar skipped, count as days of the Julian calendar. The result is 0.00005 s late, so
/// that a later truncation to seconds does not fall one second short.
/// Source: J. Meeus, Astronomical Algorithms, 2nd edition, chapter 7, equation (7.1).
double CalculateJulianDay(int year, int month, int day, int hour, int minute, int second);

/// The Julian day of a Gregorian record; its `MSeconds` are not read.
double GregorianDateToJulian(const VAKDate& date);

/// The date and time of day of a Julian day; seconds are truncated after adding 0.00001 day. Before 3 January of year 1
/// (Julian day 1721425.5) the result's year is 1 minus the year. Years = Months = Days = -1 for a Julian day that is not
/// finite or more than 200,000,000 days from 0.
VAKDate JulianToGregorian(double julianDay);

/// The Julian day of a Hijri record, 0.00005 s late like CalculateJulianDay; -1.0 when the month is not in the table.
double HijriDateToJulian(const VAKDate& date);

/// The Hijri date of a Julian day, with the time of day of JulianToGregorian. Years = Months = Days = -1 outside the
/// table: before 29 November 2008 and from 9 October 2048 on.
VAKDate JulianToHijri(double julianDay);

/// The Julian day of the first day of a Hijri month at 0 h; -1.0 outside the table.
/// @param index  12 * (Hijri year - 1430) + Hijri month, 0..493
double GetHijriFirstDayOfTheMonthAsJulianDate(int index);

/// The Julian day plus a number of minutes.
double addMinute(int minutes, double julianDay);

/// The weekday of a Gregorian date.
int DayOfWeekWithYear(int year, int month, int day);

/// The weekday of a Hijri date; -1 when the month is not in the table.
int DayOfHijriWeekWithYear(int year, int month, int day);

/// The weekday of a Julian day; -1 for a number that is not finite or beyond the range of 32 bits.
int DayOfWeekWithJulianDate(double julianDay);

/// The fractional part, 0 <= result < 1, of negative numbers too; 0 when x is not finite.
double frac(double x);

/// Splits hours, reduced to 0..24, into hour, minute and second; seconds are truncated. All are 0 when `hours` is not
/// finite.
void ToHMS(int& hour, int& minute, int& second, double hours);

}  // namespace quode::calendar
