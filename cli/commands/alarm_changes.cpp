// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm set, on, off: sets alarms up and switches them. Each shows the alarms afterwards.
#include "app/alarm_changes.h"
#include "app/alarm_sounds.h"
#include "app/user_alarms.h"
#include "cli/alarm_table.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "common/numbers.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

std::optional<int> offsetOf(const Arguments& arguments) {
    const std::optional<std::string> text = arguments.text("offset");
    if (!text) return std::nullopt;
    const std::optional<int> minutes = numberOf<int>(*text);
    if (minutes) return minutes;
    throw Failure(ExitCode::usage, _("--offset is a number of minutes, such as -15 for a quarter of an hour "
                                     "before, not \"{}\".",
                                     trimmed(*text)));
}

void runAlarmSet(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const std::optional<int> offset = offsetOf(arguments);
    std::optional<std::string> sound = arguments.text("sound");
    if (!offset && !sound)
        throw Failure(ExitCode::usage, _("Say what to set: --offset MINUTES, --sound NAME, or both."));
    if (sound) sound = soundNamedByUser(session, *sound);
    setUpAlarms(session, prayersOf(session, arguments), offset, sound);
    showAlarms(console, readAlarms(session));
}

void runOn(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    switchAlarms(session, prayersOf(session, arguments), true);
    showAlarms(console, readAlarms(session));
}

void runOff(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    switchAlarms(session, prayersOf(session, arguments), false);
    showAlarms(console, readAlarms(session));
}

}  // namespace

Command alarmSetCommand() {
    return {
        "set",
        _("Set when an alarm rings, and its sound"),
        {prayerParameter(Parameter::Kind::words),
         {Parameter::Kind::option, "offset", "MINUTES", _("-15: a quarter of an hour before the time; 0: at the time")},
         {Parameter::Kind::option, "sound", "NAME|FILE", _("The sound, see quode settings sound")}},
        runAlarmSet};
}

Command alarmOnCommand() {
    return {"on", _("Switch alarms on"), {prayerParameter(Parameter::Kind::words)}, runOn};
}

Command alarmOffCommand() {
    return {"off", _("Switch alarms off"), {prayerParameter(Parameter::Kind::words)}, runOff};
}

}  // namespace quode::cli
