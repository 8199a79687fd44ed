// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Texts of times, zones and angles. A number that is not finite, or too large for the text, gives dashes. Nothing throws.
namespace quode::formatting {

/// How a time is written: with 24 hours, or with 12 and a symbol for each half of the day.
struct ClockConvention {
    bool is24Hour = true;
    std::string amSym;  ///< before noon; with 12 hours only
    std::string pmSym;  ///< from noon on
};

/// The text of a time that does not exist.
inline constexpr std::string_view noTime = "--:--";

/// A minute of the clock.
struct ClockMinute {
    int hour = 0;  ///< 0 to 23
    int minute = 0;
};

/// The minute that a time of day is shown as. Computed in single precision; more than 30 seconds round the minute up,
/// exactly 30 do not.
/// @param hours  decimal hours; from 24 on, 24 less
/// @return nothing when the number is not finite or too large
std::optional<ClockMinute> shownClock(double hours);

/// The clock text of a time of day in decimal hours, rounded as by `shownClock`. The caller handles the mark -1.0 of a
/// missing time.
std::string timeLeadingZero(double hours, const ClockConvention& convention);

/// The clock text of an hour and a minute. With 12 hours the hour after midnight is 00 and the hour after noon is 12.
std::string timeLeadingZero(int hour, int minute, const ClockConvention& convention);

/// "hh:mm:ss", always with 24 hours.
std::string timeLeadingZeroWithSeconds(int hour, int minute, int second);

/// The text of an offset from UTC, such as "(+) 05:30"; " ☀" follows while summer time is in force.
/// @param offset  hours, positive in the east
std::string GetGMTValueStr(bool daylightSaving, double offset);

/// Degrees and minutes with their sign, such as "+10°59'"; minutes are rounded, but never up to 60.
std::string getDegMinStrWithMinusPlus(double degrees);

/// The text of a qibla angle as an azimuth, such as "270°00'" for 90: an angle above 0 is subtracted from 360; minutes are
/// truncated.
std::string getQiblaAngleStr(double degrees);

/// The decimal text, with six decimals, of "degrees;minutes;seconds" with an optional leading "-". The last field is
/// always divided by 3600 and each field between first and last by 60, so "41;30" is 41 + 30/3600. An empty text gives
/// "0.000000".
std::string getFloatStr(std::string_view text);

}  // namespace quode::formatting
