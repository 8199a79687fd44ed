// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Notes on the single times of a day: where each comes from, when the congregation begins.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/json.h"
#include "app/place.h"
#include "data/city_day.h"

namespace quode::app {

class Session;

/// "adjusted by you" where a time has minutes of the user's own; else empty.
std::string adjustmentMark(const CityDay& day, int code);

/// Why a time is not plainly that of the method, in a few words for a line with one prayer: "adjusted by you",
/// "by a fallback rule", "out of order". Empty when it is.
std::string shortMark(const CityDay& day, int code);

/// Why times are not plainly those of the method, a line for each reason: "Fajr, Isha: with your adjustment of +2
/// minutes".
std::vector<std::string> timeNotes(Session& session, const CityDay& day);

/// What the clock shows at a time on the other side of a change of the clocks: a day has one offset, that of noon. Empty
/// on nearly every day.
std::string otherClockNote(Session& session, const ZoneClock& clock, const CityDay& day, int code);

/// "Iqama: Fajr 06:30, Dhuhr 13:20"; empty when none is known.
std::string iqamaLine(Session& session, const CityDay& day);

/// {"fajr": "06:30", ...} of the six main prayers, each null where none is known; null when all are.
Json iqamaJson(const CityDay& day);

/// The method that is usual in the country of the user's city, and how to choose it, as long as the user has chosen
/// none; else empty.
std::string usualMethodNote(Session& session, const ChosenPlace& place);

/// The same for a window, which points to its settings.
std::string usualMethodFact(Session& session, const ChosenPlace& place);

}  // namespace quode::app
