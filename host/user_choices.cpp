// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/user_choices.h"

#include <QStringList>
#include <stdexcept>

#include "app/user_data.h"
#include "companion/UserDatabase.h"
#include "data/user_places.h"
#include "host/texts.h"

namespace quode::host {

QString prepareUserChoices(app::Session& session, UserEventStore& calendar) {
    GlobalFuncs& services = session.services();
    QStringList notices;
    if (services.dataFolderProblem()) notices << QString::fromStdString(*services.dataFolderProblem());
    try {
        UserDatabase database(session.dataFolder(), session.cities(), session.deviceClock());
        for (const std::string& notice : database.notices()) notices << QString::fromStdString(notice);
        const std::optional<UserCity> home = database.home();
        if (home && !home->city) notices << QString::fromStdString(app::lostHome(home->id));
        if (database.cities().empty()) notices << textsOf(services.languageId()).addCity;
        database.refreshPrayerTimes();
        const StoreStatus moved = calendar.changeLayout(loadSettings(database).calendarLayout);
        if (!moved.ok) notices << QString::fromStdString(moved.message);
    } catch (const std::runtime_error& error) {  // of either database; the panel is shown all the same
        notices << error.what();
    }
    return notices.join('\n');
}

PanelLayout chosenLayout(app::Session& session) {
    try {
        const std::optional<UserDatabase> database = app::userDatabaseToRead(session);
        return database ? loadSettings(*database).panelLayout : PanelLayout::automatic;
    } catch (const UserDatabaseError&) {
        return PanelLayout::automatic;  // what is wrong is told with the panel
    } catch (const CityDatabaseError&) {
        return PanelLayout::automatic;
    }
}

std::optional<int> homeNumber(app::Session& session) {
    try {
        const std::optional<UserDatabase> database = app::userDatabaseToRead(session);
        const std::optional<UserCity> home = database ? database->home() : std::nullopt;
        return home ? std::optional(home->id) : std::nullopt;
    } catch (const std::runtime_error&) {
        return std::nullopt;  // what is wrong is told with the panel
    }
}

void makeUserDatabase(app::Session& session, const CityRecord& city) {
    UserDatabase database(session.dataFolder(), session.cities(), session.deviceClock());
    const bool isKnown = city.id > 0;
    if (isKnown) database.addCity(city.id);
    const int wanted = isKnown ? city.id : database.addPlace({city.name, city.latitude, city.longitude, city.zone});
    for (const UserCity& each : database.cities()) {
        if (each.id != wanted) database.removeCity(each.id);
    }
}

}  // namespace quode::host
