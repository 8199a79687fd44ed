// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/city_changes.h"

#include <algorithm>

#include "app/alarm_calendar.h"
#include "app/failure.h"
#include "app/method_choice.h"
#include "app/session.h"
#include "app/user_data.h"
#include "astro/prayer.h"
#include "companion/SiteChoices.h"
#include "companion/user_connection.h"
#include "data/user_places.h"
#include "texts/translation.h"

namespace quode::app {

void changeCities(Session& session, const std::function<void(UserDatabase&)>& change) {
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    calendar.change([&] { change(database); });
}

RemovedCity removeCity(Session& session, int id) {
    RemovedCity removed;
    changeCities(session, [&](UserDatabase& database) {
        const std::vector<UserCity> cities = database.cities();
        const auto city = std::ranges::find(cities, id, &UserCity::id);
        if (city != cities.end()) removed = {*city, static_cast<std::size_t>(city - cities.begin())};
        database.removeCity(id);
    });
    return removed;
}

void bringBack(Session& session, const RemovedCity& removed) {
    const auto& city = removed.city.city;
    if (!city) return;
    changeCities(session, [&](UserDatabase& database) {
        int id = removed.city.id;
        if (isUserPlace(id)) {
            id = database.addPlace({city->name, city->latitude, city->longitude, city->zone});
        } else {
            database.addCity(id);
        }
        if (city->choice.isChosen) storeMethod(database.connection(), id, city->choice.method, city->choice.height);
        if (city->choice.table) storeTimetable(database.connection(), id, *city->choice.table);
        if (city->choice.iqama != IqamaRules{}) storeIqama(database.connection(), id, city->choice.iqama);
        database.moveCity(id, std::min(removed.position, database.cities().size() - 1));
        if (removed.city.isHome) database.chooseHome(id);
    });
}

IqamaRules chooseIqama(Session& session, const CityRecord& city, const std::vector<int>& codes,
                       const std::optional<Iqama>& iqama) {
    UserDatabase database = userDatabaseToChange(session);
    UserConnection& connection = database.connection();
    IqamaRules rules;
    connection.change([&] {
        rules = readSiteChoice(connection.handle(), city.id).iqama;
        for (const int code : codes) {
            if (code != int(Prayer::sunrise)) rules.at(static_cast<std::size_t>(code - firstPrayer)) = iqama;
        }
        storeIqama(connection, city.id, rules);
    });
    return rules;
}

void chooseMethod(Session& session, const CityRecord& city, const conventions::Method& method) {
    checkMethod(method);
    changeCities(session, [&](UserDatabase& database) {
        storeMethod(database.connection(), city.id, method, city.elevation.value_or(0));
        database.refreshPrayerTimes();
    });
}

}  // namespace quode::app
