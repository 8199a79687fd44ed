// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "astro/sky_memo.h"

namespace quode {

/// The Sun by its mean elements at a moment; `FastAstro::SunDecRA`.
SunMoment sunMomentAt(double julianDay);

/// The same at three moments at once, into records of which those that hold their moment already are left.
void computeMissing(const std::array<SunMoment*, 3>& moments, const std::array<double, 3>& julianDays);

}  // namespace quode
