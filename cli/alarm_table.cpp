// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/alarm_table.h"

#include <algorithm>

#include "app/alarm_habits.h"
#include "app/dates.h"
#include "app/day_view.h"
#include "app/place.h"
#include "app/ringer.h"
#include "app/time_notes.h"
#include "app/user_data.h"
#include "cli/page_parts.h"
#include "common/calendar.h"
#include "common/formatting.h"
#include "texts/translation.h"

namespace quode::cli {

using namespace app;
using namespace terminal;

namespace {

/// "tomorrow", by the civil day of the place.
std::string dayText(Session& session, const CityRecord& city, const VAKDate& date) {
    const VAKDate now = today(session, siteOf(city));
    if (sameDay(date, now)) return _("today");
    const bool isLater = calendar::GregorianDateToJulian(date) > calendar::GregorianDateToJulian(now);
    return isLater ? std::string(_("tomorrow")) : _("yesterday");
}

/// When an alarm rings; with the day where that is another one than the prayer's.
std::string ringText(Session& session, const CityRecord& city, const AlarmOccurrence& ring) {
    const VAKDate day = wallClock(siteOf(city).clock(), ring.due);
    const std::string clock = clockAt(session, city, ring.due);
    return sameDay(day, ring.date) ? clock : dayText(session, city, day) + " " + clock;
}

/// When an alarm rings next; of one that is silent for some days, with the day of the week.
std::string nextRingText(Session& session, const UserAlarms& all, const UserAlarm& alarm) {
    const auto ring = std::ranges::find(all.coming, alarm.code, &AlarmOccurrence::code);
    if (ring != all.coming.end()) return ringText(session, *all.city, *ring);
    const auto later = all.city ? nextRing(*all.city, alarm, session.now(), false) : std::nullopt;
    return later ? ringMoment(session, *all.city, later->due) : std::string(formatting::noTime);
}

std::vector<std::string> rowOf(Session& session, const UserAlarms& all, const UserAlarm& alarm, bool isNext) {
    const auto prayer = std::ranges::find(all.prayers, alarm.code, &AlarmOccurrence::code);
    const bool comes = prayer != all.prayers.end();
    std::vector<std::string> row{isNext ? "›" : " ", session.prayerName(alarm.code),
                                 clockText(session, comes ? std::optional(prayer->hours) : std::nullopt),
                                 comes ? dayText(session, *all.city, prayer->date) : "",
                                 std::string(alarm.isOn ? _c("alarm", "on") : _c("alarm", "off"))};
    const std::string mark = comes ? adjustmentMark(*all.city, *prayer) : "";
    const bool isSetUp = alarm.isOn || !alarm.sound.empty();
    if (!isSetUp && mark.empty()) return row;
    row.push_back(isSetUp ? nextRingText(session, all, alarm) : "");
    row.push_back(isSetUp ? offsetText(alarm.offset) : "");
    row.push_back(isSetUp ? soundText(all, alarm) : "");
    std::string remarks = mark;
    if (isSetUp) {
        for (const std::string& each : habitTexts(session, all, alarm)) remarks += (remarks.empty() ? "" : "; ") + each;
    }
    row.push_back(remarks);
    return row;
}

void printTable(Console& console, const UserAlarms& all) {
    using Align = TextTable::Align;
    const std::vector<AlarmOccurrence> rings = all.rings();
    TextTable table({Align::left, Align::left, Align::right, Align::left, Align::left, Align::right, Align::left,
                     Align::left, Align::left});
    for (const UserAlarm& alarm : all.alarms) {
        table.add(rowOf(console.session(), all, alarm, !rings.empty() && rings.front().code == alarm.code));
    }
    const std::vector<std::string> lines = table.lines(console.rowWidth());
    const Style& style = console.style();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool isNext = lines[i].starts_with("›");
        const bool isOn = all.alarms[i].isOn;
        console.print(isNext ? style.strong(lines[i]) : isOn ? lines[i] : style.dim(lines[i]));
    }
}

Json daysJson(unsigned days) {
    Json::Array keys;
    for (const int day : daysOfWeek(days)) keys.push_back(Json(weekdayKey(day)));
    return keys;
}

Json silenceJson(Session& session, const UserAlarm& alarm) {
    return alarm.silentUntil() > session.now() ? Json(isoMoment(alarm.silentUntil())) : Json();
}

Json alarmsJson(Session& session, const UserAlarms& all) {
    Json::Array alarms;
    for (const UserAlarm& alarm : all.alarms) {
        const auto ring = std::ranges::find(all.coming, alarm.code, &AlarmOccurrence::code);
        alarms.push_back(object({{"code", alarm.code},
                                 {"key", prayerKey(alarm.code)},
                                 {"name", session.prayerName(alarm.code)},
                                 {"on", alarm.isOn},
                                 {"offset_minutes", alarm.offset},
                                 {"sound", soundOf(all, alarm)},
                                 {"days", daysJson(alarm.days)},
                                 {"reminder_minutes", alarm.reminder ? Json(*alarm.reminder) : Json()},
                                 {"silent_until", silenceJson(session, alarm)},
                                 {"next", ring == all.coming.end() ? Json() : ringJson(session, all, *ring)}}));
    }
    return alarms;
}

}  // namespace

std::string adjustmentMark(const CityRecord& city, const AlarmOccurrence& ring) {
    return app::adjustmentMark(computeCityDay(siteOf(city), ring.date), ring.code);
}

void printAlarmCity(Console& console, const UserAlarms& all) {
    console.print(console.style().strong(all.city->name) + "  " + regionAndCountry(console.session(), *all.city));
    console.print();
}

void showAlarms(Console& console, const UserAlarms& all) {
    Session& session = console.session();
    const RingerState ringer = ringerState(session, all.settings);
    if (console.wantsJson()) {
        return console.printJson(object({{"city", all.city ? cityJson(*all.city) : Json()},
                                         {"alarms", alarmsJson(session, all)},
                                         {"ringer", ringerJson(ringer)}}));
    }
    if (all.city) {
        printAlarmCity(console, all);
    } else {
        console.print(all.lostHome ? console.wrapped(lostHome(*all.lostHome))
                                   : _("You have no cities yet. To choose one: quode city home NAME."));
        console.print();
    }
    printTable(console, all);
    if (all.city) printHowHomeWasChosen(console);
    if (!all.anyIsOn()) return;
    console.print();
    printRinger(console, ringer);
}

}  // namespace quode::cli
