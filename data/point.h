// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "data/CityDatabase.h"

namespace quode {

/// A point that is no place of the database: with clock and margin of the place nearest to it, and with its height where
/// that is near enough to be the same terrain.
CityRecord recordOfPoint(double latitude, double longitude, const NearestCity& nearest);

}  // namespace quode
