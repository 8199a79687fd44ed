// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "astro/VAKDate.h"
#include "conventions/Convention.h"

namespace quode {

/// When the congregation begins: minutes after the prayer time, or at a fixed minute of the day.
struct Iqama {
    bool isFixed = false;
    int minutes = 0;

    friend bool operator==(const Iqama&, const Iqama&) = default;
};

/// The begin of the congregation at each prayer; no value: unknown.
using IqamaRules = std::array<std::optional<Iqama>, mainPrayerCount>;

/// The published times of one day, in minutes after 0 h of it; from 1440 on in the next day. No value: no time.
struct TimetableRow {
    std::array<std::optional<int>, mainPrayerCount> minutes;
    std::optional<int> asrHanafi;
    IqamaRules iqama;

    friend bool operator==(const TimetableRow&, const TimetableRow&) = default;
};

/// A timetable that the user imported for a city. It overrides the method on its dates.
struct Timetable {
    std::string name;
    std::map<int, TimetableRow> rows;  ///< by day, counted from 1 January 1970

    /// The row of a date; nullptr without one.
    const TimetableRow* rowOf(const VAKDate& date) const;

    friend bool operator==(const Timetable&, const Timetable&) = default;
};

/// The number of days since 1 January 1970 of a Gregorian date.
int dayNumber(const VAKDate& date);

/// A row as text for the database: "312 402 - 930 1101 - 960 +20 - - - =1120 -". A fixed format: it is stored.
std::string textOf(const TimetableRow& row);

/// Reads such a text; nothing for any other text.
std::optional<TimetableRow> timetableRowOf(std::string_view text);

/// Rules as text for the database: "+20 - =810 +10 +5 +10". A fixed format: it is stored.
std::string textOf(const IqamaRules& rules);

/// Reads such a text; nothing for any other text.
std::optional<IqamaRules> iqamaRulesOf(std::string_view text);

}  // namespace quode
