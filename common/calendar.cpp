// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/calendar.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "astro/AstroGlobalFuncs.h"
#include "common/hijri_table.h"

namespace quode::calendar {
namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double secondNudge = 4.999999873689376e-05;  // 5e-5 in single precision
constexpr double dayNudge = 0.00001;
constexpr double largestJulianDay = 2e8;
constexpr double thirdJanuaryOfYearOne = 1721425.5;
constexpr float firstGregorianDay = 2299160.5F;
constexpr VAKDate noDate{-1, -1, -1, 0, 0, 0, 0.0};

std::int64_t hijriIndex(std::int64_t year, std::int64_t month) {
    return 12 * (year - 1430) + month;
}

bool isInHijriTable(std::int64_t index) {
    return index >= 0 && index < hijriMonthCount;
}

// The table, with some days around it, is far from the change of the calendar: days are consecutive.
constexpr double firstPlainDay = 2454700.0, lastPlainDay = 2469800.0;

/// The index of the last month that does not begin after a midnight; -1 or `hijriMonthCount` - 1 outside the table.
int hijriMonthAt(double midnight) {
    constexpr double meanMonth = 29.530589;
    int index = static_cast<int>((midnight - HijriFirstDayOfMonths[0]) / meanMonth);
    index = std::clamp(index, 0, hijriMonthCount - 1);
    const auto firstDay = [](int month) { return HijriFirstDayOfMonths[static_cast<std::size_t>(month)]; };
    while (index + 1 < hijriMonthCount && firstDay(index + 1) <= midnight) ++index;
    while (index >= 0 && firstDay(index) > midnight) --index;
    return index;
}

/// `JulianToHijri` where days are consecutive; nothing where the moment is so close to a whole second that the rounding of
/// the intermediate Gregorian date would decide.
std::optional<VAKDate> plainJulianToHijri(double julianDay) {
    constexpr double clearly = 1e-5;
    const auto dayNumber = static_cast<std::int32_t>(julianDay + 0.5);
    const double seconds = (julianDay - dayNumber + 0.5 + dayNudge) * secondsPerDay;
    auto whole = static_cast<std::int32_t>(seconds);
    const double rest = seconds - whole;
    if (!(rest > clearly && rest < 1.0 - clearly)) return std::nullopt;
    const bool isNextDay = whole >= 86400;
    if (isNextDay) whole -= 86400;
    VAKDate date;
    date.Hours = whole / 3600;
    date.Minutes = whole / 60 % 60;
    date.Seconds = whole % 60;
    const double midnight = dayNumber + (isNextDay ? 0.5 : -0.5);
    const int month = hijriMonthAt(midnight);
    if (month < 0 || month == hijriMonthCount - 1) {
        date.Years = date.Months = date.Days = -1;
        return date;
    }
    const bool isLastOfYear = month % 12 == 0;
    date.Years = (isLastOfYear ? 1429 : 1430) + month / 12;
    date.Months = isLastOfYear ? 12 : month % 12;
    date.Days = static_cast<int>(midnight - HijriFirstDayOfMonths[static_cast<std::size_t>(month)]) + 1;
    return date;
}

}  // namespace

double CalculateJulianDay(int year, int month, int day, int hour, int minute, int second) {
    return AstroGlobalFuncs::CalculateJulianDay(year, month, day, hour, minute, second);
}

double GregorianDateToJulian(const VAKDate& date) {
    return CalculateJulianDay(date.Years, date.Months, date.Days, date.Hours, date.Minutes, date.Seconds);
}

VAKDate JulianToGregorian(double julianDay) {
    if (!(std::abs(julianDay) <= largestJulianDay)) return noDate;

    const auto Z = static_cast<std::int64_t>(std::trunc(julianDay + 0.5));
    const std::int64_t alpha = (Z * 100 + 3204500) / 3652425;
    const bool isJulianCalendar = static_cast<float>(Z) < firstGregorianDay;
    const std::int64_t B = isJulianCalendar ? Z + 1524 : Z + alpha + 1486 - alpha / 4;
    const std::int64_t C = (B * 100 - 12210) / 36525;
    const std::int64_t D = C * 36525 / 100;
    const std::int64_t E = (B - D) * 100 / 3061;
    const std::int64_t dayOfMonth = B - D - E * 306 / 10;
    const double day = static_cast<double>(dayOfMonth) + julianDay - static_cast<double>(Z) + 0.5 + dayNudge;

    VAKDate date;
    date.Months = static_cast<int>(E <= 13 ? E - 1 : E - 13);
    date.Years = static_cast<int>(date.Months > 2 ? C - 4716 : C - 4715);
    if (julianDay < thirdJanuaryOfYearOne) date.Years = 1 - date.Years;
    date.Days = static_cast<int>(day);
    ToHMS(date.Hours, date.Minutes, date.Seconds, frac(day) * 24.0);
    return date;
}

double HijriDateToJulian(const VAKDate& date) {
    const std::int64_t index = hijriIndex(date.Years, date.Months);
    if (!isInHijriTable(index)) return -1.0;
    const double seconds = date.Seconds + date.Hours * 3600.0 + date.Minutes * 60.0 + secondNudge;
    return HijriFirstDayOfMonths[static_cast<std::size_t>(index)] + date.Days - 1.0 + seconds / secondsPerDay;
}

VAKDate JulianToHijri(double julianDay) {
    if (julianDay > firstPlainDay && julianDay < lastPlainDay) {
        if (const auto date = plainJulianToHijri(julianDay)) return *date;
    }
    VAKDate date = JulianToGregorian(julianDay);
    const double midnight = CalculateJulianDay(date.Years, date.Months, date.Days, 0, 0, 0);
    const auto next = std::upper_bound(HijriFirstDayOfMonths.begin(), HijriFirstDayOfMonths.end(), midnight);
    if (next == HijriFirstDayOfMonths.begin() || next == HijriFirstDayOfMonths.end()) {
        date.Years = date.Months = date.Days = -1;
        return date;
    }
    const auto month = static_cast<int>(next - HijriFirstDayOfMonths.begin()) - 1;
    const double firstDay = *(next - 1);
    const bool isLastOfYear = month % 12 == 0;
    date.Years = (isLastOfYear ? 1429 : 1430) + month / 12;
    date.Months = isLastOfYear ? 12 : month % 12;
    date.Days = static_cast<int>(std::trunc(midnight) + 1.0 - std::trunc(firstDay));
    return date;
}

double GetHijriFirstDayOfTheMonthAsJulianDate(int index) {
    return isInHijriTable(index) ? HijriFirstDayOfMonths[static_cast<std::size_t>(index)] : -1.0;
}

double addMinute(int minutes, double julianDay) {
    return julianDay + minutes * 60.0 / secondsPerDay;
}

int DayOfWeekWithYear(int year, int month, int day) {
    return DayOfWeekWithJulianDate(CalculateJulianDay(year, month, day, 0, 0, 0));
}

int DayOfHijriWeekWithYear(int year, int month, int day) {
    const double julianDay = HijriDateToJulian(VAKDateMake(day, month, year, 0, 0, 0));
    return julianDay < 0.0 ? -1 : DayOfWeekWithJulianDate(julianDay);
}

int DayOfWeekWithJulianDate(double julianDay) {
    const double day = julianDay + 1.5;
    if (!(std::abs(day) < std::numeric_limits<std::int32_t>::max())) return -1;
    return static_cast<std::int32_t>(day) % 7;
}

double frac(double x) {
    return std::isfinite(x) ? AstroGlobalFuncs::frac(x) : 0.0;
}

void ToHMS(int& hour, int& minute, int& second, double hours) {
    AstroGlobalFuncs::ToHMS(hours, hour, minute, second);
}

}  // namespace quode::calendar
