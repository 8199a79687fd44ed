// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/Choices.h"

#include <fmt/format.h>

#include <algorithm>

#include "companion/AlarmHabits.h"
#include "companion/SiteChoices.h"
#include "companion/user_connection.h"

namespace quode {
namespace {

std::string textOf(const SiteChoice& choice) {
    std::string text = fmt::format("{} {} {};", conventions::textOf(choice.method), choice.height, choice.isUnreadable);
    if (!choice.table) return text;
    for (const auto& [day, row] : choice.table->rows) text += fmt::format("{} {};", day, quode::textOf(row));
    return text;
}

}  // namespace

std::vector<AlarmRule> Choices::rules() const {
    std::vector<AlarmRule> rules;
    for (const UserAlarm& alarm : alarms) {
        if (alarm.isOn) rules.push_back(alarm.ruleWithReminder());
    }
    return rules;
}

const UserAlarm* Choices::alarm(int code) const {
    const auto found = std::ranges::find(alarms, code, &UserAlarm::code);
    return found == alarms.end() ? nullptr : &*found;
}

std::string Choices::text() const {
    std::string text;
    for (const UserCity& city : cities) {
        text += fmt::format("{} {};", city.id, city.isHome);
        if (!city.city) continue;
        text += fmt::format("{} {} {};", city.city->latitude, city.city->longitude, city.city->zone);
        text += textOf(city.city->choice);
    }
    for (const UserAlarm& alarm : alarms) {
        text += fmt::format("{} {} {} {} {} {};", alarm.offset, alarm.isOn, alarm.sound, alarm.days,
                            alarm.reminder.value_or(alarm.offset), alarm.silentUntil().time_since_epoch().count());
    }
    return text + fmt::format("{} {} {}", settings.defaultSound, int(settings.calendarLayout), int(ringer));
}

Choices readChoices(UserDatabase& database) {
    Choices choices;
    database.connection().read([&] {
        choices.cities = database.cities();
        choices.home = database.home();
        choices.alarms = database.alarms();
        choices.settings = loadSettings(database);
    });
    if (choices.home && choices.home->city) requireReadableChoice(*choices.home->city);
    choices.ringer = choices.settings.ringer;
    return choices;
}

std::optional<Choices> readChoicesBehindLock(const std::filesystem::path& dataFolder, const CityDatabase& cities,
                                             const Clock& device) {
    Choices choices;
    const bool isKnown = UserDatabase::readBehindLock(dataFolder, cities, device,
                                                      [&](UserDatabase& database) { choices = readChoices(database); });
    return isKnown ? std::optional(choices) : std::nullopt;
}

void restoreChoices(UserDatabase& database, const Choices& choices) {
    database.connection().change([&] {
        const std::vector<UserCity> fresh = database.cities();
        std::optional<int> home;
        for (const UserCity& each : choices.cities) {
            int id = each.id;
            if (id >= 0) {
                if (!each.city) continue;
                database.addCity(id);
            } else if (each.city) {
                id = database.addPlace({each.city->name, each.city->latitude, each.city->longitude, each.city->zone});
            }
            if (each.city) storeSiteChoice(database.connection(), id, each.city->choice);
            if (each.isHome) home = id;
        }
        for (const UserCity& each : fresh) {
            if (std::ranges::find(choices.cities, each.id, &UserCity::id) == choices.cities.end() && home) {
                database.removeCity(each.id);
            }
        }
        if (home) database.chooseHome(*home);
        for (const UserAlarm& alarm : choices.alarms) {
            database.setUpAlarm(alarm.code, alarm.offset, alarm.sound);
            database.connection().run("UPDATE USER_ALARMS SET ACTIVE = ?, EVENTID = ? WHERE TIMEID = ?",
                                      {alarm.isOn ? 1 : 0, alarm.eventIdentifier, alarmNumber(alarm.code)});
            storeHabits(database.connection(), alarm);
        }
        if (!choices.alarms.empty()) muteUntil(database, choices.alarms.front().mutedUntil);
        saveSettings(database, choices.settings);
    });
}

}  // namespace quode
