// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Clock, calendar arithmetic and formatting of the shared services.
#include <cmath>

#include "common/GlobalFuncs.h"
#include "common/calendar.h"

namespace quode {
namespace {

// The epoch of the seconds in GetCurrentDateTime.
constexpr Clock::TimePoint referenceMoment = std::chrono::sys_days(std::chrono::January / 1 / 2001);

}  // namespace

void GlobalFuncs::GetClock(int& hour, int& minute, int& second, std::string* text) const {
    const VAKDate now = GetDateTimeFromNSDate(platform_.clock->now());
    hour = now.Hours;
    minute = now.Minutes;
    second = now.Seconds;
    if (text != nullptr) *text = timeLeadingZero(static_cast<float>(hour) + static_cast<float>(minute) / 60.0F);
}

void GlobalFuncs::GetDate(int& day, int& month, int& year) const {
    const VAKDate now = GetDateTimeFromNSDate(platform_.clock->now());
    day = now.Days;
    month = now.Months;
    year = now.Years;
}

VAKDate GlobalFuncs::GetDateTimeFromNSDate(Clock::TimePoint moment) const {
    const CivilTime time = platform_.clock->civilTime(moment);
    return VAKDateMake(time.day, time.month, time.year, time.hour, time.minute, time.second);
}

double GlobalFuncs::GetDateTimeJDFromNSDate(Clock::TimePoint moment) const {
    return calendar::GregorianDateToJulian(GetDateTimeFromNSDate(moment));
}

double GlobalFuncs::GetDateJDFromNSDate(Clock::TimePoint moment) const {
    const VAKDate date = GetDateTimeFromNSDate(moment);
    return calendar::CalculateJulianDay(date.Years, date.Months, date.Days, 0, 0, 0);
}

VAKDate GlobalFuncs::GetCurrentDateTime() const {
    const Clock::TimePoint now = platform_.clock->now();
    const double seconds = std::chrono::duration<double>(now - referenceMoment).count();
    VAKDate date = GetDateTimeFromNSDate(now);
    date.MSeconds = seconds - std::trunc(seconds);
    return date;
}

double GlobalFuncs::CalculateJulianDay(int year, int month, int day, int hour, int minute, int second) const {
    return calendar::CalculateJulianDay(year, month, day, hour, minute, second);
}

double GlobalFuncs::GregorianDateToJulian(const VAKDate& date) const {
    return calendar::GregorianDateToJulian(date);
}

VAKDate GlobalFuncs::JulianToGregorian(double julianDay) const {
    return calendar::JulianToGregorian(julianDay);
}

double GlobalFuncs::HijriDateToJulian(const VAKDate& date) const {
    return calendar::HijriDateToJulian(date);
}

VAKDate GlobalFuncs::JulianToHijri(double julianDay) const {
    return calendar::JulianToHijri(julianDay);
}

double GlobalFuncs::GetHijriFirstDayOfTheMonthAsJulianDate(int index) const {
    return calendar::GetHijriFirstDayOfTheMonthAsJulianDate(index);
}

double GlobalFuncs::addMinute(int minutes, double julianDay) const {
    return calendar::addMinute(minutes, julianDay);
}

int GlobalFuncs::DayOfWeekWithYear(int year, int month, int day) const {
    return calendar::DayOfWeekWithYear(year, month, day);
}

int GlobalFuncs::DayOfHijriWeekWithYear(int year, int month, int day) const {
    return calendar::DayOfHijriWeekWithYear(year, month, day);
}

int GlobalFuncs::DayOfWeekWithJulianDate(double julianDay) const {
    return calendar::DayOfWeekWithJulianDate(julianDay);
}

double GlobalFuncs::frac(double x) const {
    return calendar::frac(x);
}

void GlobalFuncs::ToHMS(int& hour, int& minute, int& second, double hours) const {
    calendar::ToHMS(hour, minute, second, hours);
}

std::string GlobalFuncs::timeLeadingZero(double hours) const {
    return formatting::timeLeadingZero(hours, clockConvention_);
}

std::string GlobalFuncs::timeLeadingZero(int hour, int minute) const {
    return formatting::timeLeadingZero(hour, minute, clockConvention_);
}

std::string GlobalFuncs::timeLeadingZeroWithSeconds(int hour, int minute, int second) const {
    return formatting::timeLeadingZeroWithSeconds(hour, minute, second);
}

std::string GlobalFuncs::GetGMTValueStr(bool daylightSaving, double offset) const {
    return formatting::GetGMTValueStr(daylightSaving, offset);
}

std::string GlobalFuncs::getDegMinStrWithMinusPlus(double degrees) const {
    return formatting::getDegMinStrWithMinusPlus(degrees);
}

std::string GlobalFuncs::getQiblaAngleStr(double degrees) const {
    return formatting::getQiblaAngleStr(degrees);
}

std::string GlobalFuncs::getFloatStr(std::string_view text) const {
    return formatting::getFloatStr(text);
}

}  // namespace quode
