// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/json.h"
#include "data/city_day.h"

namespace quode::app {

class Session;

/// Seconds until a coming prayer.
std::chrono::seconds timeLeft(Session& session, const NextPrayer& next);

/// "in 2 h 13 min", after "tomorrow" where the prayer is that of tomorrow.
std::string timeLeftText(Session& session, const Site& site, const NextPrayer& next);

Json nextPrayerJson(Session& session, const NextPrayer& next);

}  // namespace quode::app
