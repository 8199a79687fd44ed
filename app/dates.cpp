// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/dates.h"

#include <fmt/format.h>

#include <cmath>
#include <optional>

#include "app/failure.h"
#include "astro/julian_day.h"
#include "common/calendar.h"
#include "common/numbers.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr int lastYear = 9999;
constexpr int reformYear = 1582, reformMonth = 10, firstSkippedDay = 5, lastSkippedDay = 14;

std::optional<int> number(std::string_view digits) {
    const bool isPlain = !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
    return isPlain ? numberOf<int>(digits) : std::nullopt;
}

/// The numbers between the dashes; empty when the text is anything else.
std::vector<int> numbersOf(std::string_view text) {
    std::vector<int> numbers;
    while (true) {
        const std::size_t dash = text.find('-');
        const std::optional<int> value = number(text.substr(0, dash));
        if (!value) return {};
        numbers.push_back(*value);
        if (dash == std::string_view::npos) return numbers;
        text.remove_prefix(dash + 1);
    }
}

std::vector<int> parsed(std::string_view text, std::size_t count, const char* what, const char* form,
                        const char* example) {
    std::vector<int> numbers = numbersOf(text);
    if (numbers.size() == count) return numbers;
    throw Failure(ExitCode::usage, _("\"{}\" is not a {}. Write it as {}, such as {}.", text, what, form, example));
}

void checkYear(int year) {
    if (year >= 1 && year <= lastYear) return;
    throw Failure(ExitCode::usage, _("Year {} is out of range (1–{}).", year, lastYear));
}

void checkMonth(int month) {
    if (month >= 1 && month <= 12) return;
    throw Failure(ExitCode::usage, _("Month {} is out of range (1–12).", month));
}

bool isSkipped(int year, int month, int day) {
    return year == reformYear && month == reformMonth && day >= firstSkippedDay && day <= lastSkippedDay;
}

}  // namespace

int parseYear(std::string_view text) {
    const int year = parsed(text, 1, _("year"), "YYYY", "2026")[0];
    checkYear(year);
    return year;
}

Month parseMonth(std::string_view text) {
    const std::vector<int> numbers = parsed(text, 2, _("month"), "YYYY-MM", "2026-11");
    checkYear(numbers[0]);
    checkMonth(numbers[1]);
    return {numbers[0], numbers[1]};
}

VAKDate parseDate(std::string_view text) {
    const std::vector<int> numbers = parsed(text, 3, _("date"), "YYYY-MM-DD", "2026-11-21");
    const int year = numbers[0], month = numbers[1], day = numbers[2];
    checkYear(year);
    checkMonth(month);
    if (day < 1 || day > daysInMonth(year, month)) {
        throw Failure(ExitCode::usage,
                      _("There is no day {}: {:04}-{:02} has {} days.", text, year, month, daysInMonth(year, month)));
    }
    if (isSkipped(year, month, day)) {
        throw Failure(ExitCode::usage, _("There is no day {}: the calendar went from 1582-10-04 (Julian) to "
                                         "1582-10-15 (Gregorian).",
                                         text));
    }
    return VAKDateMake(day, month, year, 0, 0, 0);
}

VAKDate parseHijriDate(std::string_view text) {
    const std::vector<int> numbers = parsed(text, 3, _("Hijri date"), "YYYY-MM-DD", "1448-09-01");
    const int year = numbers[0], month = numbers[1], day = numbers[2];
    checkMonth(month);
    // The product stays in range for every year that can be meant.
    const int index = year > lastYear ? -1 : 12 * (year - 1430) + month;
    const double first = calendar::GetHijriFirstDayOfTheMonthAsJulianDate(index);
    const double next = calendar::GetHijriFirstDayOfTheMonthAsJulianDate(index + 1);
    if (first < 0.0 || next < 0.0) {
        throw Failure(ExitCode::notFound, _("{} is outside the Hijri table (1429-12-01 to 1470-12-30).", text));
    }
    const int length = static_cast<int>(next - first);
    if (day < 1 || day > length) {
        throw Failure(ExitCode::usage, _("There is no Hijri day {}: the month has {} days.", text, length));
    }
    return VAKDateMake(day, month, year, 0, 0, 0);
}

std::chrono::sys_seconds parseMoment(std::string_view text) {
    const auto fail = [text]() -> std::chrono::sys_seconds {
        throw Failure(ExitCode::usage, _("\"{}\" is not a moment. Write it as 2026-11-21T04:00:00Z, or with an offset "
                                         "as 2026-11-21T07:00:00+03:00.",
                                         text));
    };
    constexpr std::size_t dateLength = 10, momentLength = 19, offsetLength = 6;
    if (text.size() <= momentLength || text[dateLength] != 'T' || text[13] != ':' || text[16] != ':') return fail();
    const std::chrono::year_month_day date = civilDate(parseDate(text.substr(0, dateLength)));
    const auto hour = number(text.substr(11, 2)), minute = number(text.substr(14, 2)),
               second = number(text.substr(17, 2));
    if (!date.ok() || !hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) return fail();
    const std::chrono::sys_seconds moment = std::chrono::sys_days(date) + std::chrono::hours(*hour) +
                                            std::chrono::minutes(*minute) + std::chrono::seconds(*second);
    const std::string_view zone = text.substr(momentLength);
    if (zone == "Z") return moment;
    if (zone.size() != offsetLength || (zone[0] != '+' && zone[0] != '-') || zone[3] != ':') return fail();
    const auto hours = number(zone.substr(1, 2)), minutes = number(zone.substr(4, 2));
    if (!hours || !minutes || *hours > 14 || *minutes > 59) return fail();
    const auto offset = std::chrono::hours(*hours) + std::chrono::minutes(*minutes);
    return zone[0] == '+' ? moment - offset : moment + offset;
}

std::vector<VAKDate> daysOf(const Month& month) {
    std::vector<VAKDate> days;
    for (int day = 1; day <= daysInMonth(month.year, month.month); ++day) {
        if (!isSkipped(month.year, month.month, day)) {
            days.push_back(VAKDateMake(day, month.month, month.year, 0, 0, 0));
        }
    }
    return days;
}

std::string isoMoment(std::chrono::sys_seconds moment) {
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::hh_mm_ss time(moment - day);
    return fmt::format("{}T{:02}:{:02}:{:02}Z", isoDate(std::chrono::year_month_day(day)), time.hours().count(),
                       time.minutes().count(), time.seconds().count());
}

bool isJulianCalendar(const VAKDate& date) {
    return civilDate(date) < civilDate(VAKDateMake(lastSkippedDay + 1, reformMonth, reformYear, 0, 0, 0));
}

int weekdayOf(const VAKDate& date) {
    return calendar::DayOfWeekWithYear(date.Years, date.Months, date.Days);
}

std::chrono::sys_seconds instantOfJulianDay(double julianDay) {
    constexpr double secondsPerDay = 86400.0;
    return std::chrono::sys_seconds(
        std::chrono::seconds(std::llround((julianDay - julianDayOfUnixEpoch) * secondsPerDay)));
}

}  // namespace quode::app
