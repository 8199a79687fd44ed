// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace quode::conventions {

/// A Hijri date.
struct HijriDay {
    int year = 0, month = 0, day = 0;
};

/// The Hijri date of a day by the Umm al-Qura calendar.
/// @param dayFrom1970  days since 1 January 1970
/// @return nothing outside 1300 to 1600 AH
/// Source: the calendar data of Unicode's ICU, a table of published dates.
std::optional<HijriDay> ummAlQuraDay(int dayFrom1970);

}  // namespace quode::conventions
