// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quode::timetables {

/// What a column of a timetable holds. The first six and the seventh are in the order of `Prayer`.
enum class Column {
    fajr,
    sunrise,
    dhuhr,
    asr,
    maghrib,
    isha,
    asrHanafi,
    fajrIqama,
    sunriseIqama,
    dhuhrIqama,
    asrIqama,
    maghribIqama,
    ishaIqama,
    imsak,  ///< Fajr, unless another column is
    sabah,  ///< Fajr, unless there is an imsak
    date,
    day,
    month,
    year,
};
inline constexpr std::size_t columnCount = 19;

/// The column of a heading in Turkish, English, Arabic, Malay or French; nothing for others, such as weekdays.
std::optional<Column> columnOf(std::string_view heading);

/// A heading that `columnOf` reads as this column, which is a prayer, an iqama or imsak.
std::string headingOf(Column column);

/// Whether a text has a word for the congregation, such as "Fajr Iqamah" or "Jama'at".
bool namesCongregation(std::string_view text);

/// Whether a text has a word for the Hijri calendar.
bool namesHijri(std::string_view text);

/// The name of a column in messages: "fajr", "asr (Hanafi)", "iqama of isha".
std::string nameOf(Column column);

/// The month that a name in one of these languages means, 1..12.
std::optional<int> monthNamed(std::string_view name);

/// Letters without case and accents; Arabic without its marks, its digits as 0 to 9; blanks and signs as one blank.
std::string plainText(std::string_view text);

}  // namespace quode::timetables
