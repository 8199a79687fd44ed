// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "companion/UserDatabase.h"
#include "terminal/Console.h"

namespace quode::cli {

/// Shows the user's cities in their order, as text or JSON.
void showCities(terminal::Console& console, const std::vector<UserCity>& cities);

}  // namespace quode::cli
