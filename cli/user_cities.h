#pragma once

#include <vector>

#include "cli/json.h"
#include "companion/UserDatabase.h"

namespace quode::cli {

class Session;

/// Shows the user's cities in their order, as text or JSON.
void showCities(Session& session, const std::vector<UserCity>& cities);

}  // namespace quode::cli
