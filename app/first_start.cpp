// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/first_start.h"

#include <algorithm>

#include "app/alarm_changes.h"
#include "app/city_changes.h"
#include "app/session.h"
#include "app/user_alarms.h"
#include "app/user_data.h"
#include "conventions/Method.h"

namespace quode::app {
namespace {

constexpr const char* askedName = "start.asked";

}  // namespace

std::optional<CityRecord> cityToAskAbout(Session& session) {
    const std::optional<UserDatabase> database = userDatabaseToRead(session);
    if (!database || database->setting(askedName)) return std::nullopt;
    const std::optional<UserCity> home = database->home();
    return home && home->isGuess ? home->city : std::nullopt;
}

void takeAnswer(Session& session, const FirstAnswer& answer) {
    changeCities(session, [&](UserDatabase& database) {
        const std::optional<UserCity> guess = database.home();
        database.addCity(answer.city);
        database.chooseHome(answer.city);
        if (guess && guess->id != answer.city) database.removeCity(guess->id);
        database.setSetting(askedName, "yes");
    });
    const std::optional<CityRecord> city = answer.method.empty() ? std::nullopt : homeCity(session);
    if (city) {
        conventions::Method method;
        method.key = answer.method;
        chooseMethod(session, *city, method);
    }
    std::vector<int> off;
    for (const UserAlarm& alarm : readAlarms(session).alarms) {
        const bool isWanted = std::ranges::find(answer.alarms, alarm.code) != answer.alarms.end();
        if (alarm.isOn && !isWanted) off.push_back(alarm.code);
    }
    switchAlarms(session, off, false);
    if (!answer.alarms.empty()) switchAlarms(session, answer.alarms, true);
}

void skipQuestion(Session& session) {
    userDatabaseToChange(session).setSetting(askedName, "yes");
}

}  // namespace quode::app
