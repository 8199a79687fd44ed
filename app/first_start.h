// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The first start: the city was guessed from the time zone, and the user has not been asked yet. Whichever window comes
// first asks. All throw `UserDatabaseError`.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/CityDatabase.h"

namespace quode::conventions {
struct Convention;
}

namespace quode::app {

class Session;

/// The guessed city to ask the user about; nothing once they have answered or chosen a city.
std::optional<CityRecord> cityToAskAbout(Session& session);

/// What the user answered.
struct FirstAnswer {
    int city = 0;             ///< its number
    std::vector<int> alarms;  ///< the prayers that ring, 200..205
    std::string method = {};  ///< the key of the city's method; empty: the default
};

void takeAnswer(Session& session, const FirstAnswer& answer);

/// The user does not want to be asked; the city stays, marked as a guess.
void skipQuestion(Session& session);

}  // namespace quode::app
