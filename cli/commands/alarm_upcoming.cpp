// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm upcoming: what will ring, when, and which program will ring it.
#include <fmt/format.h>

#include "app/place.h"
#include "app/ringer.h"
#include "app/session.h"
#include "app/text_layout.h"
#include "app/user_alarms.h"
#include "cli/commands.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void printRings(Session& session, const UserAlarms& all) {
    using Align = TextTable::Align;
    TextTable table({Align::right, Align::left, Align::left, Align::left, Align::left});
    for (const AlarmOccurrence& ring : all.rings()) {
        const bool isSnoozed = all.isSnoozed(ring);
        table.add({clockAt(session, *all.city, ring.due), session.prayerName(ring.code),
                   isSnoozed ? std::string(_("snoozed")) : offsetText(all.alarm(ring.code).offset),
                   timeUntil(session, *all.city, ring.due), soundOf(all, all.alarm(ring.code))});
    }
    const std::vector<std::string> lines = table.lines(session.rowWidth());
    for (std::size_t i = 0; i < lines.size(); ++i) session.print(i == 0 ? session.style().strong(lines[i]) : lines[i]);
}

void runUpcoming(Session& session, const Arguments&) {
    const UserAlarms all = readAlarms(session);
    const RingerState ringer = ringerState(session, all.settings);
    if (session.wantsJson()) {
        Json::Array rings;
        if (all.city) {
            for (const AlarmOccurrence& ring : all.rings()) rings.push_back(ringJson(session, all, ring));
        }
        return session.printJson(object(
            {{"city", all.city ? cityJson(*all.city) : Json()}, {"rings", rings}, {"ringer", ringerJson(ringer)}}));
    }
    if (!all.anyIsOn() && all.snoozed.empty()) {
        return session.print(_("No alarm is on. To switch one on: quode alarm on PRAYER."));
    }
    if (all.city) {
        printAlarmCity(session, all);
        printRings(session, all);
        session.print();
    }
    printRinger(session, ringer);
}

}  // namespace

Command alarmUpcomingCommand() {
    return {"upcoming", _("What will ring within a day, and by whom"), {}, runUpcoming};
}

}  // namespace quode::cli
