// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace quode {

/// Number of Hijri months in the table: Dhu al-Hijjah 1429 to Muharram 1471.
inline constexpr int hijriMonthCount = 494;

/// The Julian day, at 0 h, of the first day of each Hijri month, at the index 12 * (year - 1430) + month. Fixed values.
extern const std::array<double, hijriMonthCount> HijriFirstDayOfMonths;

}  // namespace quode
