// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "data/posix_zone.h"
#include "data/zone_rules.h"

namespace quode::places {

/// The years over which an approximate rule is chosen, both inclusive.
struct Years {
    int first = 0;
    int last = 0;
};

/// A zone's clock as a rule of whole days.
///
/// A zone whose second time is an hour less than its standard (Dublin) is turned round into an ordinary one. A change
/// that happens on the day its rule names becomes that weekday rule. A change that happens on another day (24 hours or
/// more after the beginning of that day, or before it) becomes the weekday rule that meets the first day whose noon has
/// the new time in the most of the given years; among equals the one with the fewest days of error in the other years,
/// then the earlier occurrence.
ZoneRule encoded(const PosixZone& zone, Years years);

/// The first day whose noon has the new time, for a change that happens on another day than the one its rule names;
/// otherwise the day that the rule names.
std::chrono::sys_days firstDayOf(const PosixChange& change, int year);

}  // namespace quode::places
