// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/repairs.h"

#include <string_view>

#include "app/alarm_calendar.h"
#include "app/alarm_sounds.h"
#include "app/session.h"
#include "app/settings.h"
#include "app/user_alarms.h"
#include "app/user_data.h"
#include "companion/autostart.h"
#include "platform/folders.h"

namespace quode::app {
namespace {

using State = Finding::State;

// Alarms whose sound is missing get that of the settings, or the first of the bundle when that is missing too.
void replaceLostSounds(Session& session) {
    UserDatabase database = userDatabaseToChange(session);
    const UserSettings settings = loadSettings(database);
    if (!soundExists(session, settings.defaultSound)) changeSetting(session, "sound", UserSettings{}.defaultSound);
    for (const UserAlarm& alarm : database.alarms()) {
        const bool isLost = !alarm.sound.empty() && !soundExists(session, alarm.sound);
        if (isLost) database.setUpAlarm(alarm.code, alarm.offset, "");
    }
}

void renewEvents(Session& session) {
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar(session, database).renew();
}

void letServiceStart(Session& session) {
    const ServiceStart start =
        assureServiceStart(session.environment(), executablePath().parent_path() / "quode-alarmd");
    if (!start.message.empty()) session.report(start.message);
}

struct Repair {
    std::string_view key;
    void (*apply)(Session&);
};

constexpr Repair repairs[] = {
    {"calendar",
     [](Session& session) {
         removeStrayEvents(session);
         renewEvents(session);
     }},
    {"sounds", replaceLostSounds},
    {"alarm_service", letServiceStart},
};

const Repair* repairOf(const Finding& finding) {
    for (const Repair& each : repairs) {
        if (each.key == finding.key && finding.state == State::problem) return &each;
    }
    return nullptr;
}

}  // namespace

void removeStrayEvents(Session& session) {
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    const AlarmChange removed = calendar.book().removeEventsWithoutAlarm();
    if (!removed.ok()) session.report(removed.message, ExitCode::userData);
}

bool canRepair(const Finding& finding) {
    return repairOf(finding) != nullptr;
}

void repair(Session& session, const Finding& finding) {
    if (const Repair* const found = repairOf(finding)) found->apply(session);
}

}  // namespace quode::app
