// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What has to be said beside the times of a day: in every front the same words.
#pragma once

#include <string>
#include <vector>

#include "app/json.h"
#include "app/place.h"
#include "data/city_day.h"

namespace quode::app {

class Session;

/// The rule behind the times of a place: "Sun 19° and 17° below the horizon, margin 10 min 47 s".
std::string ruleText(const Site& site);

Json ruleJson(const Site& site);

/// Why a prayer has no time on a day, for example "Ishraq: the Sun stays lower than 5° above the horizon."; empty when
/// it has one.
std::string missingPrayerNote(Session& session, const CityDay& day, int code);

/// Why rise or set of Sun and Moon are missing, a sentence for each body; empty when they are all there.
std::vector<std::string> missingSkyNotes(const CityDay& day);

/// Both of these for a whole day.
std::vector<std::string> missingNotes(Session& session, const CityDay& day);

/// Where a note says that something else can be chosen.
enum class Remedy {
    command,   ///< of `quode`
    settings,  ///< in the settings window
};

/// How the city was chosen, when that is a guess of Quode's, and how to choose another; empty when the user chose it.
std::string guessNote(Session& session, const ChosenPlace& place, Remedy remedy = Remedy::command);

/// All notes of a day, for a front with a few lines below its times: iqama, where times come from, missing times, the
/// method and its rule, the method that is usual in the country, and a guessed city.
std::vector<std::string> dayNotes(Session& session, const ChosenPlace& place, const CityDay& day,
                                  Remedy remedy = Remedy::command);

}  // namespace quode::app
