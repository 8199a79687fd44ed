// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// The Julian day of 1 January 1970, 0 h universal time, from which the clocks of computers count.
inline constexpr double julianDayOfUnixEpoch = 2440587.5;

}  // namespace quode
