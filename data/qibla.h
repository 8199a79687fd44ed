// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "astro/Place.h"

namespace quode {

/// The position of the Kaaba, degrees, north and east positive.
inline constexpr double kaabaLatitude = 21.4225, kaabaLongitude = 39.8262;

/// The qibla in degrees clockwise from true north.
double bearingOf(const KiblePair& kible);

/// The distance to the Kaaba along the great circle of a sphere.
/// @param latitude,longitude  degrees, north and east positive
/// @return kilometres
double distanceToKaaba(double latitude, double longitude);

}  // namespace quode
