// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode city add, remove, home, move: changes the user's cities. Each shows them afterwards.
#include <functional>

#include "app/city_changes.h"
#include "app/place.h"
#include "app/user_data.h"
#include "cli/commands.h"
#include "cli/user_cities.h"
#include "common/numbers.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

Parameter cityWords(const std::string& help) {
    return {Parameter::Kind::words, "CITY", "", help, true};
}

std::string wordsOf(const Arguments& arguments) {
    return arguments.text("CITY").value_or("");
}

/// Does something with the user's cities, and shows them.
void changeAndShow(Console& console, const std::function<void(UserDatabase&)>& change) {
    Session& session = console.session();
    app::changeCities(session, change);
    showCities(console, userDatabaseToChange(session).cities());
}

int addPoint(UserDatabase& database, const ChosenPlace& point, const Arguments& arguments) {
    const std::optional<std::string> name = arguments.text("name");
    if (!name) throw Failure(ExitCode::usage, _("A place that is given by coordinates needs a name: --name NAME"));
    return database.addPlace(
        {std::string(trimmed(*name)), point.city.latitude, point.city.longitude, arguments.text("zone").value_or("")});
}

/// Adds what was named.
/// @return its id
int addCity(Session& session, UserDatabase& database, const Arguments& arguments) {
    const ChosenPlace place = choosePlace(session, wordsOf(arguments));
    if (place.nearest) return addPoint(database, place, arguments);
    if (arguments.has("name") || arguments.has("zone")) {
        throw Failure(ExitCode::usage,
                      _("--name and --zone are for places given by coordinates: the city database knows those of {}.",
                        place.city.name));
    }
    if (!database.addCity(place.city.id)) session.report(_("{} is already in your list.", place.city.name));
    return place.city.id;
}

void runAdd(Console& console, const Arguments& arguments) {
    changeAndShow(console, [&](UserDatabase& database) { addCity(console.session(), database, arguments); });
}

void runRemove(Console& console, const Arguments& arguments) {
    changeAndShow(console, [&](UserDatabase& database) {
        database.removeCity(cityOfList(database.cities(), wordsOf(arguments)).id);
    });
}

/// The id of a city among the user's; nothing when it is not there.
std::optional<int> idInList(const UserDatabase& database, const std::string& request) {
    try {
        return cityOfList(database.cities(), request).id;
    } catch (const Failure& failure) {
        if (failure.code() != ExitCode::notFound) throw;
        return std::nullopt;
    }
}

void runHome(Console& console, const Arguments& arguments) {
    changeAndShow(console, [&](UserDatabase& database) {
        const std::optional<int> known = idInList(database, wordsOf(arguments));
        database.chooseHome(known ? *known : addCity(console.session(), database, arguments));
    });
}

void runMove(Console& console, const Arguments& arguments) {
    const std::string words(trimmed(wordsOf(arguments)));
    const std::size_t blank = words.find_last_of(' ');
    const std::optional<int> position =
        blank == std::string::npos ? std::nullopt : numberOf<int>(std::string_view(words).substr(blank));
    if (!position || *position < 1) {
        throw Failure(ExitCode::usage, _("Name a city of your list and its new position, such as: quode city move "
                                         "Ankara 1"));
    }
    changeAndShow(console, [&](UserDatabase& database) {
        const UserCity city = cityOfList(database.cities(), trimmed(words.substr(0, blank)));
        database.moveCity(city.id, static_cast<std::size_t>(*position - 1));
    });
}

std::vector<Parameter> additionParameters() {
    return {cityWords(_("NAME, ID or LAT,LON")),
            {Parameter::Kind::option, "name", "NAME", _("The name of a place given by coordinates")},
            {Parameter::Kind::option, "zone", "ZONE", _("Its time zone, when not that of the nearest city")}};
}

}  // namespace

Command cityAddCommand() {
    return {"add", _("Add a city or place to yours"), additionParameters(), runAdd};
}

Command cityRemoveCommand() {
    return {"remove", _("Remove one of your cities"), {cityWords(_("Its position, NAME or ID"))}, runRemove};
}

Command cityHomeCommand() {
    return {"home", _("Choose the city whose times are shown and ring"), additionParameters(), runHome};
}

Command cityMoveCommand() {
    return {"move",
            _("Move one of your cities to another position"),
            {cityWords(_("Its position, NAME or ID; then its new position"))},
            runMove};
}

}  // namespace quode::cli
