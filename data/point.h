// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "data/CityDatabase.h"

namespace quode {

/// A record for a point that is not a place of the database: with clock and margin of the nearest place, and with its
/// height where that place is near enough to have the same terrain.
/// @param latitude,longitude  degrees, north and east positive
CityRecord recordOfPoint(double latitude, double longitude, const NearestCity& nearest);

}  // namespace quode
