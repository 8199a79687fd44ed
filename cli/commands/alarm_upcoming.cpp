// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm upcoming: what will ring, when, and which program will ring it.
#include <fmt/format.h>

#include "app/alarm_habits.h"
#include "app/place.h"
#include "app/ringer.h"
#include "app/user_alarms.h"
#include "cli/alarm_table.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void printRings(Console& console, const UserAlarms& all) {
    Session& session = console.session();
    using Align = TextTable::Align;
    TextTable table({Align::right, Align::left, Align::left, Align::left, Align::left, Align::left});
    for (const AlarmOccurrence& ring : all.rings()) {
        const bool isSnoozed = all.isSnoozed(ring);
        table.add({clockAt(session, *all.city, ring.due), session.prayerName(ring.code),
                   isSnoozed ? std::string(_("snoozed")) : offsetText(all.alarm(ring.code).offset),
                   timeUntil(session, *all.city, ring.due), soundText(all, all.alarm(ring.code)),
                   adjustmentMark(*all.city, ring)});
    }
    const std::vector<std::string> lines = table.lines(console.rowWidth());
    for (std::size_t i = 0; i < lines.size(); ++i) console.print(i == 0 ? console.style().strong(lines[i]) : lines[i]);
    if (const std::string muted = muteText(session, all); !muted.empty()) console.print(console.wrapped(muted));
    if (lines.empty() && all.anyIsOn()) console.print(console.wrapped(nextRingText(session, all)));
}

void runUpcoming(Console& console, const Arguments&) {
    Session& session = console.session();
    const UserAlarms all = readAlarms(session);
    const RingerState ringer = ringerState(session, all.settings);
    if (console.wantsJson()) {
        Json::Array rings;
        if (all.city) {
            for (const AlarmOccurrence& ring : all.rings()) rings.push_back(ringJson(session, all, ring));
        }
        return console.printJson(object(
            {{"city", all.city ? cityJson(*all.city) : Json()}, {"rings", rings}, {"ringer", ringerJson(ringer)}}));
    }
    if (!all.anyIsOn() && all.snoozed.empty()) {
        return console.print(_("No alarm is on. To switch one on: quode alarm on PRAYER."));
    }
    if (all.city) {
        printAlarmCity(console, all);
        printRings(console, all);
        printHowHomeWasChosen(console);
        console.print();
    }
    printRinger(console, ringer);
}

}  // namespace

Command alarmUpcomingCommand() {
    return {"upcoming", _("The rings of the next 24 hours, and the program that rings"), {}, runUpcoming};
}

}  // namespace quode::cli
