// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The method of times on the command line.
#pragma once

#include <vector>

#include "app/place.h"
#include "conventions/Method.h"
#include "terminal/command.h"

namespace quode::cli {

/// --method and --height, for a single call.
std::vector<terminal::Parameter> methodParameters();

/// --asr, --high-latitude, --fajr-angle, --isha-angle, --adjust, --height, --zone: changes to a method.
std::vector<terminal::Parameter> methodChangeParameters();

/// A method with the changes that the arguments name. Throws `Failure` (usage).
conventions::Method methodWith(conventions::Method method, const terminal::Arguments& arguments);

/// A method with --method and --height. Throws `Failure` (usage).
conventions::Method methodOfCall(conventions::Method method, const terminal::Arguments& arguments);

/// Takes the method of --method for a place; an imported table is left aside then. A point in a zone of JAKIM gets the
/// clock of Malaysia, though the nearest city may lie across the border. Throws `Failure` (usage).
void useMethod(app::Session& session, const terminal::Arguments& arguments, app::ChosenPlace& place);

}  // namespace quode::cli
