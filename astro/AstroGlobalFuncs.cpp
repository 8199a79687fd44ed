// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/AstroGlobalFuncs.h"

#include <cmath>
#include <cstdint>
#include <ctime>

namespace quode {
namespace {

bool isGregorian(int year, int month, int day) {
    if (year != 1582) return year > 1582;
    return month > 10 || (month == 10 && day >= 15);
}

bool isValidDate(int year, int month, int day) {
    VAKDate back;
    AstroGlobalFuncs::JulianToCalendar(AstroGlobalFuncs::CalculateJulianDay(year, month, day, 0, 0, 0), back, true);
    return back.Years == year && back.Months == month && back.Days == day;
}

int lastDayOfMonth(int year, int month) {
    VAKDate last;
    const double dayZeroOfNext = AstroGlobalFuncs::CalculateJulianDay(year, month + 1, 0, 0, 0, 0);
    AstroGlobalFuncs::JulianToCalendar(dayZeroOfNext, last, true);
    return last.Days;
}

bool isWeekdayRule(int ruleDay) {
    return ruleDay > 30;
}

bool hasImpossibleWeekday(int ruleDay) {
    return isWeekdayRule(ruleDay) && (ruleDay - 31) / 5 > 6;
}

/// The day of the month of a weekday rule; months from 1.
int dayOfWeekdayRule(int ruleDay, int year, int month) {
    const int weekday = (ruleDay - 31) / 5;
    const int occurrence = (ruleDay - 31) % 5;
    int first = 1;
    while (first < 7 && AstroGlobalFuncs::DayOfWeek(year, month, first) != weekday) ++first;
    if (occurrence < 4) return first + 7 * occurrence;
    return first + 28 <= lastDayOfMonth(year, month) ? first + 28 : first + 21;
}

/// True when the date is not before the start of summer time; the stop is not considered. Months from 1.
bool isAfterStart(int startDay, int startMonth, int stopMonth, int year, int month, int day, int& startDayOfMonth) {
    int firstDay = startDay + 1;
    if (isWeekdayRule(startDay)) {
        firstDay = startDayOfMonth = dayOfWeekdayRule(startDay, year, startMonth);
        const bool southern = startMonth >= stopMonth;
        if (southern && month <= stopMonth) return true;
    } else if (!isValidDate(year, startMonth, firstDay)) {
        return false;
    }
    return month > startMonth || (month == startMonth && day >= firstDay);
}

/// True when the date is before the stop of summer time. A fixed stop day that the month does not have counts as before
/// every date. Months from 1.
bool isBeforeStop(int stopDay, int startMonth, int stopMonth, int year, int month, int day, int& stopDayOfMonth) {
    int firstDayOutside = stopDay + 1;
    if (isWeekdayRule(stopDay)) {
        firstDayOutside = stopDayOfMonth = dayOfWeekdayRule(stopDay, year, stopMonth);
        const bool southern = startMonth >= stopMonth;
        if (southern && month >= startMonth) return true;
    } else if (!isValidDate(year, stopMonth, firstDayOutside)) {
        return false;
    }
    return month < stopMonth || (month == stopMonth && day < firstDayOutside);
}

}  // namespace

double AstroGlobalFuncs::CalculateJulianDay(int year, int month, int day, int hour, int minute, int second) {
    const double fraction = (second + hour * 3600.0 + minute * 60.0 + secondNudge) / 86400.0;
    return midnightBefore(year, month, day) + fraction;
}

double AstroGlobalFuncs::midnightBefore(int year, int month, int day) {
    // Integer divisions replace the truncations of the published formula.
    std::int64_t a = std::int64_t{year} + (year < 0 ? 1 : 0) + 4800;
    std::int64_t m = month;
    if (month < 3) {
        a -= 1;
        m += 12;
    }
    std::int64_t correction = -38;  // Julian calendar
    if (isGregorian(year, month, day)) {
        const std::int64_t century = a / 100;
        correction = century / 4 - century;
    }
    return static_cast<double>(day + (m + 1) * 306 / 10 + correction + a * 36525 / 100) - 32167.5;
}

bool AstroGlobalFuncs::isAtChangeOfCalendar(int year, int month, int day) {
    return isGregorian(year, month, day - 1) != isGregorian(year, month, day + 1);
}

double AstroGlobalFuncs::JulianDay(const VAKDate& date) {
    return CalculateJulianDay(date.Years, date.Months, date.Days, date.Hours, date.Minutes, date.Seconds);
}

double AstroGlobalFuncs::fracOfHuge(double x) {
    const double fraction = x - std::floor(x);
    return fraction < 0.0 ? fraction + 1.0 : fraction;
}

void AstroGlobalFuncs::ToHMS(double hours, int& hour, int& minute, int& second) {
    // The remainder is exact, so it equals repeated additions or subtractions of 24.
    double time = hours >= 0.0 && hours < 24.0 ? hours : std::isfinite(hours) ? std::fmod(hours, 24.0) : 0.0;
    if (time < 0.0) time += 24.0;
    if (time >= 24.0) time -= 24.0;
    const double minutes = frac(time) * 60.0;
    hour = static_cast<int>(time);
    minute = static_cast<int>(minutes);
    second = static_cast<int>(frac(minutes) * 60.0);
}

double AstroGlobalFuncs::ZArcTan2(double x, double y) {
    constexpr double halfPi = 1.5707963705062866;
    constexpr double pi = 3.1415927410125732;
    constexpr double threeHalvesPi = 4.71238899230957;
    constexpr double twoPi = 6.2831854820251465;
    if (x == 0.0) return y < 0.0 ? threeHalvesPi : y > 0.0 ? halfPi : 0.0;
    if (y == 0.0) return x > 0.0 ? 0.0 : pi;
    const double angle = std::atan(static_cast<float>(y / x));
    if (x < 0.0) return angle + pi;
    return y > 0.0 ? angle : angle + twoPi;
}

double AstroGlobalFuncs::JulianToCalendar(double julianDay, VAKDate& date, bool fill) {
    const double z = std::trunc(julianDay + 0.5);
    const double alpha = std::trunc((z * 100.0 + 3204500.0) / 3652425.0);
    const double b = static_cast<float>(z) < 2299160.5f ? z + 1524.0 : z + alpha + 1486.0 - std::trunc(alpha * 0.25);
    const double c = std::trunc((b * 100.0 - 12210.0) / 36525.0);
    const double d = std::trunc(c * 36525.0 / 100.0);
    const double e = std::trunc((b - d) * 100.0 / 3061.0);
    const double dayWithFraction = (b - d - std::trunc(e * 306.0 / 10.0)) + julianDay - z + 0.5;
    if (fill) {
        ToHMS(frac(dayWithFraction) * 24.0, date.Hours, date.Minutes, date.Seconds);
        date.Months = static_cast<int>(e < 14.0 ? e - 1.0 : e - 13.0);
        date.Years = static_cast<int>(date.Months > 2 ? c - 4716.0 : c - 4715.0);
        if (julianDay < 1721425.5) date.Years = 1 - date.Years;
        date.Days = static_cast<int>(dayWithFraction);
    }
    return dayWithFraction;
}

int AstroGlobalFuncs::DayOfWeek(int year, int month, int day) {
    return static_cast<int>(CalculateJulianDay(year, month, day, 0, 0, 0) + 1.5) % 7;
}

bool AstroGlobalFuncs::IsDSTDay(int startDay, int startMonth, int stopDay, int stopMonth, int year, int month, int day,
                                int& startDayOfMonth, int& stopDayOfMonth) {
    startDayOfMonth = stopDayOfMonth = -1;
    if (!isValidDate(year, month, day)) return false;
    if (hasImpossibleWeekday(startDay) || hasImpossibleWeekday(stopDay)) return false;
    const int start = startMonth + 1;
    const int stop = stopMonth + 1;
    const bool afterStart = isAfterStart(startDay, start, stop, year, month, day, startDayOfMonth);
    const bool beforeStop = isBeforeStop(stopDay, start, stop, year, month, day, stopDayOfMonth);
    return afterStart && beforeStop;
}

double AstroGlobalFuncs::Round(double x, int digits) {
    const double power = static_cast<int>(std::pow(10.0, digits));
    return std::round(static_cast<float>(x * power)) / power;
}

void AstroGlobalFuncs::GetCurrentDateTime(VAKDate& date) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    date =
        VAKDateMake(local.tm_mday, local.tm_mon + 1, local.tm_year + 1900, local.tm_hour, local.tm_min, local.tm_sec);
}

VAKDate AstroGlobalFuncs::JulianToHicri(double julianDayNumber) {
    VAKDate hijri;
    if (!(julianDayNumber >= 1948440.0)) {
        hijri.Years = hijri.Months = hijri.Days = -1;
        return hijri;
    }
    const auto trunc = [](double x) { return std::trunc(x); };
    double l = trunc(julianDayNumber - 1948440.0 + 10632.0);
    const double n = trunc((l - 1.0) / 10631.0);
    l = l - 10631.0 * n + 354.0;
    const double j =
        trunc((10985.0 - l) / 5316.0) * trunc(50.0 * l / 17719.0) + trunc(l / 5670.0) * trunc(43.0 * l / 15238.0);
    l = l - trunc((30.0 - j) / 15.0) * trunc(17719.0 * j / 50.0) - trunc(j / 16.0) * trunc(15238.0 * j / 43.0) + 29.0;
    const double month = trunc(24.0 * l / 709.0);
    hijri.Months = static_cast<int>(month);
    hijri.Days = static_cast<int>(l - trunc(709.0 * month / 24.0));
    hijri.Years = static_cast<int>(30.0 * n + j - 30.0);
    return hijri;
}

VAKDate AstroGlobalFuncs::GregJulToHicri(int day, int month, int year) {
    const auto trunc = [](double x) { return std::trunc(x); };
    const double d = day, m = month, y = year;
    if (isGregorian(year, month, day)) {
        const double a = trunc((m - 14.0) / 12.0);
        return JulianToHicri(d + trunc((m - 2.0 - 12.0 * a) * 367.0 / 12.0) + trunc((y + 4800.0 + a) * 1461.0 * 0.25) -
                             trunc(trunc((y + 4900.0 + a) / 100.0) * 3.0 * 0.25) - 32075.0);
    }
    // The quotient by 9 keeps its fraction of a day.
    return JulianToHicri(d + 367.0 * y - trunc((y + 5001.0 + trunc((m - 9.0) / 7.0)) * 7.0 * 0.25) +
                         trunc(275.0 * m) / 9.0 + 1729777.0);
}

}  // namespace quode
