// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The conventions of locales from the ICU of the build (tools/locales): loading ICU takes longer than computing a day.
#pragma once

#include <cstdint>
#include <span>

namespace quode::locale_table {

/// The conventions of a locale. Texts are offsets into `texts`, where each ends with a zero byte.
struct Habits {
    std::uint32_t months[12];
    std::uint32_t shortMonths[12];
    std::uint32_t weekdays[7];
    std::uint32_t shortWeekdays[7];
    std::uint32_t am, pm;
    std::uint32_t lowerAm, lowerPm;
    std::uint32_t decimalMark;
};

/// A locale.
struct Name {
    std::uint32_t text;    ///< such as "tr", "zh_Hant", "en_US"
    std::uint16_t habits;  ///< index into `habits`
    bool hasTwelveHours;
};

/// The hours of a country.
struct Country {
    std::uint32_t text;  ///< such as "US", "en_JP", "001"
    bool hasTwelveHours;
};

extern const char* const texts;
extern const std::span<const Habits> habits;
extern const std::span<const Name> names;         ///< sorted by bytes; languages, with and without countries
extern const std::span<const Country> countries;  ///< sorted by bytes

}  // namespace quode::locale_table
