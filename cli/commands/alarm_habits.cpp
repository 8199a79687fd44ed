// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm days, remind, skip, mute: when alarms ring beside their usual time, and when they are silent.
#include "app/alarm_habits.h"

#include "app/dates.h"
#include "app/user_alarms.h"
#include "cli/alarm_table.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "common/numbers.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void runDays(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    app::chooseDays(session, prayersOf(session, arguments),
                    app::daysNamed(session, arguments.text("DAYS").value_or("")));
    showAlarms(console, readAlarms(session));
}

void runRemind(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const std::string text(trimmed(arguments.text("MINUTES").value_or("")));
    const std::optional<int> minutes = numberOf<int>(text);
    if (!minutes && text != "off") {
        throw Failure(
            ExitCode::usage,
            _("The second ring is given in minutes, such as -20 for before the time, or off; not \"{}\".", text));
    }
    app::chooseReminder(session, prayersOf(session, arguments), minutes);
    showAlarms(console, readAlarms(session));
}

void runSkip(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    for (const int code : prayersOf(session, arguments)) {
        if (arguments.has("undo")) {
            app::unskip(session, code);
        } else {
            app::skipNext(session, code);
        }
    }
    showAlarms(console, readAlarms(session));
}

std::optional<std::chrono::sys_seconds> momentNamed(Session& session, const std::string& text) {
    if (text == "off") return std::nullopt;
    if (text == "tomorrow") return app::startOfTomorrow(session);
    return parseMoment(text);
}

void runMute(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    app::mute(session, momentNamed(session, std::string(trimmed(arguments.text("UNTIL").value_or("tomorrow")))));
    showAlarms(console, readAlarms(session));
}

}  // namespace

Command alarmDaysCommand() {
    return {"days",
            _("Let an alarm ring on some days of the week"),
            {prayerParameter(Parameter::Kind::word),
             {Parameter::Kind::words, "DAYS", "", _("Such as mon,wed,fri, or all"), true}},
            runDays};
}

Command alarmRemindCommand() {
    return {"remind",
            _("Let an alarm ring a second time, before or after"),
            {prayerParameter(Parameter::Kind::word),
             {Parameter::Kind::word, "MINUTES", "", _("After the time, negative for before; or off"), true}},
            runRemind};
}

Command alarmSkipCommand() {
    return {"skip",
            _("Leave out the next ring of an alarm"),
            {prayerParameter(Parameter::Kind::word), {Parameter::Kind::toggle, "undo", "", _("Cancel the skip")}},
            runSkip};
}

Command alarmMuteCommand() {
    return {"mute",
            _("Mute all alarms for a while"),
            {{Parameter::Kind::word, "UNTIL", "", _("tomorrow, a moment such as 2026-11-21T14:00:00+03:00, or off")}},
            runMute};
}

}  // namespace quode::cli
