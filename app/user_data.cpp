// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/user_data.h"

#include <fmt/format.h>

#include <algorithm>

#include "app/session.h"
#include "common/numbers.h"
#include "data/name_folding.h"
#include "data/user_places.h"

namespace quode::app {
namespace {

// Nobody waits long for the times of today; another program needs some milliseconds for a change.
constexpr std::chrono::milliseconds readingPatience{200};

std::string nameOf(const UserCity& city) {
    return city.city ? city.city->name : "";
}

bool isCalled(const UserCity& city, std::string_view wish) {
    return city.city && foldedName(city.city->name) == foldedName(wish);
}

std::vector<UserCity> citiesMeant(const std::vector<UserCity>& cities, std::string_view wish) {
    const std::optional<int> number = numberOf<int>(wish);
    if (number && *number >= 1 && *number <= static_cast<int>(cities.size())) {
        return {cities[static_cast<std::size_t>(*number - 1)]};
    }
    std::vector<UserCity> meant;
    std::ranges::copy_if(cities, std::back_inserter(meant),
                         [&](const UserCity& city) { return number ? city.id == *number : isCalled(city, wish); });
    return meant;
}

}  // namespace

std::optional<UserDatabase> userDatabaseToRead(Session& session) {
    return UserDatabase::openToRead(session.dataFolder(), session.cities(), session.deviceClock(), readingPatience);
}

UserDatabase userDatabaseToChange(Session& session) {
    UserDatabase database(session.dataFolder(), session.cities(), session.deviceClock());
    for (const std::string& notice : database.notices()) writeMessage(notice);
    return database;
}

std::string lostHome(int id) {
    return fmt::format(
        "Your home city, number {}, is not in the city database any more. Choose another one: quode city home NAME",
        id);
}

std::optional<CityRecord> homeCity(Session& session) {
    const std::optional<UserCity> home = storedHome(session);
    return home ? home->city : std::nullopt;
}

std::optional<UserCity> storedHome(Session& session) {
    try {
        const std::optional<UserDatabase> database = userDatabaseToRead(session);
        const std::optional<UserCity> home = database ? database->home() : std::nullopt;
        if (!home) return std::nullopt;
        if (!home->city) session.complain(lostHome(home->id), ExitCode::userData);
        return home;
    } catch (const UserDatabaseError& error) {
        session.complain(std::string("Your home city is not known. ") + error.what(), ExitCode::userData);
        return std::nullopt;
    }
}

std::optional<CityRecord> ownPlace(Session& session, std::string_view wish) {
    try {
        const std::optional<UserDatabase> database = userDatabaseToRead(session);
        if (!database) return std::nullopt;
        const std::optional<int> number = numberOf<int>(wish);
        for (const UserCity& city : database->cities()) {
            if (isUserPlace(city.id) && (number ? city.id == *number : isCalled(city, wish))) return city.city;
        }
    } catch (const UserDatabaseError&) {
        // What is wished may be a city all the same; if not, that is told.
    }
    return std::nullopt;
}

UserCity cityOfList(const std::vector<UserCity>& cities, std::string_view wish) {
    const std::vector<UserCity> meant = citiesMeant(cities, wish);
    if (meant.size() == 1) return meant.front();
    if (meant.empty()) {
        throw Failure(ExitCode::notFound,
                      fmt::format("\"{}\" is not among your cities. Show them with: quode city list", wish));
    }
    std::string text = fmt::format("Several of your cities are called \"{}\". Use the id:", wish);
    for (const UserCity& city : meant) text += fmt::format("\n  {:>9}  {}", city.id, nameOf(city));
    throw Failure(ExitCode::usage, text);
}

}  // namespace quode::app
