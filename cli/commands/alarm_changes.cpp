// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm set, on, off: sets alarms up and switches them. Each shows the alarms afterwards.
#include <fmt/format.h>

#include "app/alarm_calendar.h"
#include "app/alarm_sounds.h"
#include "app/prayer_names.h"
#include "app/session.h"
#include "app/user_alarms.h"
#include "app/user_data.h"
#include "cli/commands.h"
#include "common/numbers.h"
#include "companion/user_connection.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

Parameter prayerWords() {
    return {Parameter::Kind::words, "PRAYER", "", _("A name such as fajr or imsak, a number 1 to 6, or all"), true};
}

std::optional<int> offsetOf(const Arguments& arguments) {
    const std::optional<std::string> text = arguments.text("offset");
    if (!text) return std::nullopt;
    const std::optional<int> minutes = numberOf<int>(*text);
    if (minutes) return minutes;
    throw Failure(ExitCode::usage, _("--offset is a number of minutes, such as -15 for a quarter of an hour "
                                     "before, not \"{}\".",
                                     trimmed(*text)));
}

/// What was given with a command is set; the rest stays, with the sound of the settings where there is none.
void setUp(UserDatabase& database, const std::vector<int>& codes, std::optional<int> offset,
           const std::optional<std::string>& sound) {
    const std::string defaultSound = loadSettings(database).defaultSound;
    for (const int code : codes) {
        const UserAlarm alarm = database.alarm(code);
        const std::string kept = alarm.sound.empty() ? defaultSound : alarm.sound;
        database.setUpAlarm(code, offset.value_or(alarm.offset), sound.value_or(kept));
    }
}

void runSet(Session& session, const Arguments& arguments) {
    const std::optional<int> offset = offsetOf(arguments);
    std::optional<std::string> sound = arguments.text("sound");
    if (!offset && !sound)
        throw Failure(ExitCode::usage, _("Say what to set: --offset MINUTES, --sound NAME, or both."));
    if (sound) sound = soundNamedByUser(session, *sound);
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    const std::vector<int> codes = prayersNamed(session, arguments.text("PRAYER").value_or(""));
    calendar.change([&] { setUp(database, codes, offset, sound); });
    showAlarms(session, readAlarms(session, database));
}

void runOn(Session& session, const Arguments& arguments) {
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    const std::vector<int> codes = prayersNamed(session, arguments.text("PRAYER").value_or(""));
    if (!database.home()) {
        throw Failure(ExitCode::notFound, _("An alarm rings for your home city. Choose one: quode city home NAME"));
    }
    database.connection().change([&] { setUp(database, codes, std::nullopt, std::nullopt); });
    for (const int code : codes) calendar.switchOn(code);
    showAlarms(session, readAlarms(session, database));
}

void runOff(Session& session, const Arguments& arguments) {
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    for (const int code : prayersNamed(session, arguments.text("PRAYER").value_or(""))) calendar.switchOff(code);
    showAlarms(session, readAlarms(session, database));
}

}  // namespace

Command alarmSetCommand() {
    return {
        "set",
        _("Set when an alarm rings, and its sound"),
        {prayerWords(),
         {Parameter::Kind::option, "offset", "MINUTES", _("-15: a quarter of an hour before the time; 0: at the time")},
         {Parameter::Kind::option, "sound", "NAME|FILE", _("The sound, see quode settings sound")}},
        runSet};
}

Command alarmOnCommand() {
    return {"on", _("Switch alarms on"), {prayerWords()}, runOn};
}

Command alarmOffCommand() {
    return {"off", _("Switch alarms off"), {prayerWords()}, runOff};
}

}  // namespace quode::cli
