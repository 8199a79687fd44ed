// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "astro/Place.h"

namespace quode {

/// The place of the Kaaba, in degrees.
inline constexpr double kaabaLatitude = 21.4225, kaabaLongitude = 39.8262;

/// The qibla in degrees clockwise from true north.
double bearingOf(const KiblePair& kible);

/// Kilometres from a place to the Kaaba, along the great circle of a sphere. Degrees, north and east positive.
double distanceToKaaba(double latitude, double longitude);

}  // namespace quode
