// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "app/json.h"
#include "companion/UserDatabase.h"

namespace quode::app {
class Session;
}

namespace quode::cli {

/// Shows the user's cities in their order, as text or JSON.
void showCities(app::Session& session, const std::vector<UserCity>& cities);

}  // namespace quode::cli
