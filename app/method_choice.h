// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The method of times on the command line: which one a call uses, and how a day says by which it was computed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/command.h"
#include "app/json.h"
#include "app/place.h"
#include "data/city_day.h"

namespace quode::app {

class Session;

/// --method, for a single call.
std::vector<Parameter> methodParameters();

/// --asr, --high-latitude, --fajr-angle, --isha-angle, --adjust, --height, --zone: changes to a method.
std::vector<Parameter> methodChangeParameters();

/// A method with the changes that the arguments name. Throws `Failure` (usage).
conventions::Method methodWith(conventions::Method method, const Arguments& arguments);

/// Throws `Failure` (usage) when a method cannot be used.
void checkMethod(const conventions::Method& method);

/// Takes the method of --method for a place; an imported table is left aside then. A point in a zone of JAKIM gets the
/// clock of Malaysia, though the nearest city may lie across the border. Throws `Failure` (usage).
void useMethod(Session& session, const Arguments& arguments, ChosenPlace& place);

/// A convention by its key. Throws `Failure` (notFound) with the way to the list.
const conventions::Convention& conventionNamed(const std::string& key);

/// "Times by Diyanet, Türkiye, adjusted; Asr of the Hanafi school". Empty for the default method without a table.
std::string methodLine(const Site& site);

/// Prints that line; nothing for the default method.
void printMethod(Session& session, const Site& site);

/// Whether the engine's own method computed a day, perhaps with the user's minutes.
bool isByEngine(const CityDay& day);

/// What else is to be known of the times of a site: an uncertain zone, a convention's remark. Sentences.
std::vector<std::string> methodRemarks(const CityDay& day);

/// Marks of a day for tables of values: "fajr_high_latitude", "isha_adjusted+2".
std::vector<std::string> methodNotes(const CityDay& day);

/// Why a time is not plainly the convention's, as a sentence; nothing when it is.
std::optional<std::string> sourceNote(const CityDay& day, int code);

Json methodJson(const CityDay& day);

}  // namespace quode::app
