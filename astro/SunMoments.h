// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "astro/sky_memo.h"

namespace quode {

/// The Sun by its mean elements at a moment, as `FastAstro::SunDecRA` computes it.
SunMoment sunMomentAt(double julianDay);

/// Computes the Sun at three moments together, which is faster. Records that already hold their moment stay.
void computeMissing(const std::array<SunMoment*, 3>& moments, const std::array<double, 3>& julianDays);

}  // namespace quode
