// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quode::app {

/// The words of the command line in one language, beside those of the language packs. Placeholders in braces are filled
/// in their order unless they are numbered.
struct Texts {
    std::array<std::string_view, 7> weekdays;       ///< from Sunday
    std::array<std::string_view, 7> weekdaysShort;  ///< from Sunday

    /// 0: the weekday, 1: the day, 2: the month, 3: the year
    std::string_view longDate, date;
    std::string_view firstOfMonth;  ///< how the day is written that begins a month
    std::string_view decimalMark;

    // durations
    std::string_view hoursMinutes, minutes, in;

    // the day
    std::string_view byTable, byCrescent, outsideTable;
    std::string_view tomorrow, afterMidnight, dayBefore;
    std::string_view noSummerTime, clocksForward, clocksBack;
    std::string_view fromNorth;
    std::string_view declination, declinationRemark;
    std::string_view margin, marginValue;
    std::string_view fallbackLatitude, fallbackImsak, fallbackYatsi;
    std::string_view chosenByZone, chosenByDefault, clockOfNearest;
    std::string_view zoneWarning, zoneWarningDay, zoneWarningDays;

    // the qibla
    std::string_view bearing, compassBearing, compassRemark, distance, kaabaDistance, sunInQibla, noSunInQibla;
    std::string_view kaabaMeridian, dueNorth, dueSouth;

    // the sky and the Moon
    std::string_view sunrise, sunset, moonrise, moonset, moonAtSunset;
    std::array<std::string_view, 8> moonPhases;  ///< new, waxing crescent, first quarter ... waning crescent
    std::string_view transit, illuminated, illuminatedValue, waxing, waning, elongation, age, ageValue, nextNewMoon,
        nextNewMoonValue;
    std::string_view litRight, litLeft, notLit, fullyLit;

    // calendars
    std::string_view gregorian, julian, rumi, season, summerSeason, winterSeason;

    // cities
    std::string_view coordinates, elevation, population;
};

/// The words of a language by the id of "common/LanguagePack.h"; an unknown id reads as English.
const Texts& textsOf(int languageId);

/// A number with a fixed count of decimals, as a language writes it.
std::string decimal(const Texts& texts, double value, int places, bool withSign = false);

/// The months of the Rumi calendar, the first being March.
std::string_view rumiMonth(int month);

}  // namespace quode::app
