// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/formatting.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <cmath>
#include <limits>

#include "common/numbers.h"

namespace quode::formatting {
namespace {

constexpr int roundUpFromSecond = 31;
constexpr std::string_view noAngle = "--°--'";

// True when the whole part of x fits an int; false for NaN and infinities.
bool fitsInt(double x) {
    return std::abs(x) < std::numeric_limits<int>::max();
}

}  // namespace

std::optional<ClockMinute> shownClock(double hours) {
    auto time = static_cast<float>(hours);
    if (time >= 24.0F) time -= 24.0F;
    if (!fitsInt(time)) return std::nullopt;
    int hour = static_cast<int>(time);
    const float minutes = (time - static_cast<float>(hour)) * 60.0F;
    int minute = static_cast<int>(minutes);
    const int second = static_cast<int>((minutes - static_cast<float>(minute)) * 60.0F);
    if (second >= roundUpFromSecond) {
        if (minute < 59) {
            ++minute;
        } else {
            minute = 0;
            hour = hour >= 23 ? 0 : hour + 1;
        }
    }
    return ClockMinute{hour, minute};
}

std::string timeLeadingZero(double hours, const ClockConvention& convention) {
    const std::optional<ClockMinute> shown = shownClock(hours);
    return shown ? timeLeadingZero(shown->hour, shown->minute, convention) : std::string(noTime);
}

std::string timeLeadingZero(int hour, int minute, const ClockConvention& convention) {
    if (convention.is24Hour) return fmt::format(FMT_COMPILE("{:02d}:{:02d}"), hour, minute);  // millions in a table
    if (hour <= 11) return fmt::format("{:02d}:{:02d} {}", hour, minute, convention.amSym);
    const int afternoonHour = hour == 12 ? 12 : hour - 12;
    return fmt::format("{:02d}:{:02d} {}", afternoonHour, minute, convention.pmSym);
}

std::string timeLeadingZeroWithSeconds(int hour, int minute, int second) {
    return fmt::format("{:02d}:{:02d}:{:02d}", hour, minute, second);
}

std::string GetGMTValueStr(bool daylightSaving, double offset) {
    const std::string_view sign = offset < 0.0 ? "(-) " : "(+) ";
    const std::string_view suffix = daylightSaving ? " ☀" : "";
    const double hours = std::abs(offset);
    if (!fitsInt(hours)) return fmt::format("{}{}{}", sign, noTime, suffix);
    const int hour = static_cast<int>(hours);
    const int minute = static_cast<int>((hours - hour) * 60.0);
    return fmt::format("{}{:02d}:{:02d}{}", sign, hour, minute, suffix);
}

std::string getDegMinStrWithMinusPlus(double degrees) {
    const char sign = degrees < 0.0 ? '-' : '+';
    const double angle = std::abs(degrees);
    if (!fitsInt(angle)) return std::string(noAngle);
    const int degree = static_cast<int>(angle);
    const int rounded = static_cast<int>(std::round((angle - degree) * 60.0));
    const int minute = rounded == 60 ? 59 : rounded;
    return fmt::format("{}{}°{}'", sign, degree, minute);
}

std::string getQiblaAngleStr(double degrees) {
    const double angle = std::abs(degrees > 0.0 ? 360.0 - degrees : degrees);
    if (!fitsInt(angle)) return std::string(noAngle);
    const int degree = static_cast<int>(angle);
    const int minute = static_cast<int>((angle - degree) * 60.0);
    return fmt::format("{:02d}°{:02d}'", degree, minute);
}

std::string getFloatStr(std::string_view text) {
    if (text.empty()) return "0.000000";
    const bool isNegative = text.front() == '-';
    if (isNegative) text.remove_prefix(1);

    double value = 0.0;
    bool isFirst = true;
    for (std::size_t end = text.find(';'); end != std::string_view::npos; end = text.find(';')) {
        const double field = leadingNumber<double>(text.substr(0, end));
        value = isFirst ? field : value + field / 60.0;
        isFirst = false;
        text.remove_prefix(end + 1);
    }
    value += leadingNumber<double>(text) / 3600.0;
    return fixedText(isNegative ? -value : value, 6);
}

}  // namespace quode::formatting
