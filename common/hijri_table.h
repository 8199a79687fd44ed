// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace quode {

/// Number of Hijri months in the table: Dhu al-Hijjah 1429 to Muharram 1471.
inline constexpr int hijriMonthCount = 494;

/// The Julian day, at 0h, of the first day of each Hijri month. The index of a month is 12 * (year - 1430) + month.
extern const std::array<double, hijriMonthCount> HijriFirstDayOfMonths;

}  // namespace quode
