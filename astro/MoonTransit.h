// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "astro/VAKDate.h"

namespace quode {

/// The moment at which the Moon crosses the upper meridian of a place, in hours 0..24 of a civil day's local clock.
/// @param date       the civil day; its time of day is not read
/// @param longitude  degrees, east positive
/// @param zoneHours  the clock's offset from universal time, hours east, summer time included
/// @return local hours, good to a few seconds; -1650.0 when the Moon does not transit that day, which happens once in
///         a lunation because it transits some 50 minutes later every day
/// Source: sidereal time of J. Meeus, Astronomical Algorithms, 2nd edition, chapter 12, equation (12.4); the Moon of
/// `MoonCompute`.
double moonTransit(const VAKDate& date, double longitude, double zoneHours);

}  // namespace quode
