// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/alarm_changes.h"

#include "app/alarm_calendar.h"
#include "app/failure.h"
#include "app/session.h"
#include "app/user_data.h"
#include "companion/user_connection.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

void setUp(UserDatabase& database, const std::vector<int>& codes, std::optional<int> offset,
           const std::optional<std::string>& sound) {
    const std::string defaultSound = loadSettings(database).defaultSound;
    for (const int code : codes) {
        const UserAlarm alarm = database.alarm(code);
        const std::string kept = alarm.sound.empty() ? defaultSound : alarm.sound;
        database.setUpAlarm(code, offset.value_or(alarm.offset), sound.value_or(kept));
    }
}

}  // namespace

void changeAlarms(Session& session, const std::function<void(UserDatabase&)>& change) {
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    calendar.change([&] { change(database); });
}

void setUpAlarms(Session& session, const std::vector<int>& codes, std::optional<int> offset,
                 const std::optional<std::string>& sound) {
    changeAlarms(session, [&](UserDatabase& database) { setUp(database, codes, offset, sound); });
}

void switchAlarms(Session& session, const std::vector<int>& codes, bool isOn) {
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    if (!isOn) {
        for (const int code : codes) calendar.switchOff(code);
        return;
    }
    if (!database.home()) {
        throw Failure(ExitCode::notFound, _("An alarm rings for your home city. Choose one: quode city home NAME"));
    }
    database.connection().change([&] { setUp(database, codes, std::nullopt, std::nullopt); });
    for (const int code : codes) calendar.switchOn(code);
}

}  // namespace quode::app
