// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode city list: the user's cities.
#include "app/user_data.h"
#include "cli/commands.h"
#include "cli/user_cities.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void listCities(Console& console, const Arguments&) {
    const std::optional<UserDatabase> database = userDatabaseToRead(console.session());
    showCities(console, database ? database->cities() : std::vector<UserCity>{});
}

}  // namespace

Command cityListCommand() {
    return {"list", _("Show your cities"), {}, listCities};
}

}  // namespace quode::cli
