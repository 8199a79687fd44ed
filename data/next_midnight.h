// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

#include "data/zone_clock.h"
#include "platform/Clock.h"

namespace quode {

/// The first second of the next day by a clock. Where the clocks skip midnight, the day begins later than 0 h; where they
/// go back over midnight and the new date comes twice, it is one of the two.
std::chrono::sys_seconds nextMidnight(const Clock& clock, std::chrono::sys_seconds now);
std::chrono::sys_seconds nextMidnight(const ZoneClock& clock, std::chrono::sys_seconds now);

}  // namespace quode
