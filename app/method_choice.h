// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The method of times: the choice of one, and how a day says by which it was computed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/json.h"
#include "app/place.h"
#include "data/city_day.h"

namespace quode::app {

class Session;

/// The shadow of Asr, in heights of the object, by the Hanafi school.
inline constexpr int hanafiFactor = 2;

/// "No authority of Libya is in the list. The calculation often used there: ...". Empty where the method usual in the
/// country is that of its own authority.
/// @param city   a place of the country
/// @param usual  `conventions::usualIn` the country
std::string borrowedMethodText(Session& session, const CityRecord& city, const conventions::Convention& usual);

/// Throws `Failure` (usage) when a method cannot be used.
void checkMethod(const conventions::Method& method);

/// A convention by its key. Throws `Failure` (notFound) with the way to the list.
const conventions::Convention& conventionNamed(const std::string& key);

/// "Times by Diyanet, Türkiye, adjusted; Asr of the Hanafi school". Empty for the default method without a table.
std::string methodLine(const Site& site);

/// Whether the engine's own method computed a day, perhaps with the user's minutes.
bool isByEngine(const CityDay& day);

/// Further remarks about the times of a site, as sentences: an uncertain zone, a convention's remark.
std::vector<std::string> methodRemarks(const CityDay& day);

/// Marks of a day for tables of values: "fajr_high_latitude", "isha_adjusted+2".
std::vector<std::string> methodNotes(const CityDay& day);

/// Why a time is not plainly the convention's, as a sentence; nothing when it is.
std::optional<std::string> sourceNote(const CityDay& day, int code);

Json methodJson(const CityDay& day);

}  // namespace quode::app
