// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/user_alarms.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>

#include "app/alarm_habits.h"
#include "app/dates.h"
#include "app/day_view.h"
#include "app/place.h"
#include "app/ringer.h"
#include "app/session.h"
#include "app/text_layout.h"
#include "app/user_data.h"
#include "common/calendar.h"
#include "common/formatting.h"
#include "common/labels.h"
#include "companion/RingRecords.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

using std::chrono::sys_seconds;

constexpr std::chrono::hours dayAhead{25};

/// The first of each prayer by these rules.
std::vector<AlarmOccurrence> firstOfEach(const CityRecord& city, const std::vector<AlarmRule>& rules, sys_seconds now) {
    std::vector<AlarmOccurrence> next;
    for (const AlarmOccurrence& each : alarmOccurrences(siteOf(city), rules, now, now + dayAhead)) {
        const bool isLater = std::ranges::find(next, each.code, &AlarmOccurrence::code) != next.end();
        if (!isLater) next.push_back(each);
    }
    return next;
}

void findRings(UserAlarms& all, sys_seconds now) {
    if (!all.city) return;
    std::vector<AlarmRule> rings, prayers;
    for (const UserAlarm& alarm : all.alarms) {
        rings.push_back(alarm.rule());
        prayers.push_back({alarm.code, alarm.offset});
    }
    all.coming = firstOfEach(*all.city, rings, now);
    all.prayers = firstOfEach(*all.city, prayers, now);
}

// Those of alarms that were switched off meanwhile do not ring.
std::vector<AlarmOccurrence> snoozedRings(Session& session, const std::vector<UserAlarm>& alarms) {
    std::vector<AlarmOccurrence> rings;
    for (const RingRecord& record : RingRecords(session.services().dataFolder()).unfinished()) {
        if (record.state != RingState::snoozed || record.ringAt <= session.now()) continue;
        const auto alarm = std::ranges::find(alarms, record.alarm.code, &UserAlarm::code);
        if (alarm == alarms.end() || !alarm->isOn) continue;
        rings.push_back(record.alarm);
        rings.back().due = record.ringAt;
    }
    return rings;
}

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
                                 clockText(session, comes ? prayer->hours : missingTime),
                                 comes ? dayText(session, *all.city, prayer->date) : "",
                                 std::string(alarm.isOn ? _c("alarm", "on") : _c("alarm", "off"))};
    const bool isSetUp = alarm.isOn || !alarm.sound.empty();
    if (!isSetUp) return row;
    row.push_back(nextRingText(session, all, alarm));
    row.push_back(offsetText(alarm.offset));
    row.push_back(soundOf(all, alarm));
    std::string habits;
    for (const std::string& each : habitTexts(session, all, alarm)) habits += (habits.empty() ? "" : "; ") + each;
    row.push_back(habits);
    return row;
}

void printTable(Session& session, const UserAlarms& all) {
    using Align = TextTable::Align;
    const std::vector<AlarmOccurrence> rings = all.rings();
    TextTable table({Align::left, Align::left, Align::right, Align::left, Align::left, Align::right, Align::left,
                     Align::left, Align::left});
    for (const UserAlarm& alarm : all.alarms) {
        table.add(rowOf(session, all, alarm, !rings.empty() && rings.front().code == alarm.code));
    }
    const std::vector<std::string> lines = table.lines(session.rowWidth());
    const Style& style = session.style();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool isNext = lines[i].starts_with("›");
        const bool isOn = all.alarms[i].isOn;
        session.print(isNext ? style.strong(lines[i]) : isOn ? lines[i] : style.dim(lines[i]));
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

bool UserAlarms::anyIsOn() const {
    return std::ranges::any_of(alarms, &UserAlarm::isOn);
}

bool UserAlarms::isSnoozed(const AlarmOccurrence& ring) const {
    return std::ranges::find(snoozed, ring) != snoozed.end();
}

std::vector<AlarmOccurrence> UserAlarms::rings() const {
    std::vector<AlarmOccurrence> rings = snoozed;
    std::ranges::copy_if(coming, std::back_inserter(rings),
                         [this](const AlarmOccurrence& each) { return alarm(each.code).isOn; });
    std::ranges::stable_sort(rings, {}, &AlarmOccurrence::due);
    return rings;
}

UserAlarms readAlarms(Session& session) {
    std::optional<UserDatabase> database = userDatabaseToRead(session);
    if (database) return readAlarms(session, *database);
    UserAlarms all;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) all.alarms.emplace_back().code = code;
    all.city = session.cities().largestCityOfZone(session.systemZone());  // with which a user database begins
    findRings(all, session.now());
    return all;
}

UserAlarms readAlarms(Session& session, UserDatabase& database) {
    UserAlarms all;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) all.alarms.push_back(database.alarm(code));
    all.settings = loadSettings(database);
    all.snoozed = snoozedRings(session, all.alarms);
    const std::optional<UserCity> home = database.home();
    if (!home || !home->city) return all;
    all.city = home->city;
    findRings(all, session.now());
    return all;
}

std::string soundOf(const UserAlarms& all, const UserAlarm& alarm) {
    return alarm.sound.empty() ? all.settings.defaultSound : alarm.sound;
}

std::string offsetText(int minutes) {
    if (minutes == 0) return std::string(_("at the time"));
    const std::string length = durationLabel(std::chrono::minutes(std::abs(minutes)));
    return minutes < 0 ? _("{} before", length) : _("{} after", length);
}

std::string clockAt(Session& session, const CityRecord& city, sys_seconds instant) {
    const VAKDate clock = wallClock(siteOf(city).clock(), instant);
    return session.services().timeLeadingZero(clock.Hours, clock.Minutes);
}

std::string timeUntil(Session& session, const CityRecord& city, sys_seconds instant) {
    const std::string left = _("in {}", durationText(instant - session.now()));
    const bool isToday = sameDay(wallClock(siteOf(city).clock(), instant), today(session, siteOf(city)));
    return isToday ? left : std::string(_("tomorrow")) + ", " + left;
}

void printAlarmCity(Session& session, const UserAlarms& all) {
    session.print(session.style().strong(all.city->name) + "  " + regionAndCountry(session, *all.city));
    session.print();
}

Json ringJson(Session& session, const UserAlarms& all, const AlarmOccurrence& ring) {
    return object({{"code", ring.code},
                   {"key", prayerKey(ring.code)},
                   {"name", session.prayerName(ring.code)},
                   {"instant", isoMoment(ring.due)},
                   {"seconds_left", (ring.due - session.now()).count()},
                   {"prayer_instant", isoMoment(ring.prayer)},
                   {"prayer_time", clock24(ring.hours)},
                   {"date", isoDate(ring.date)},
                   {"snoozed", all.isSnoozed(ring)},
                   {"sound", soundOf(all, all.alarm(ring.code))}});
}

void showAlarms(Session& session, const UserAlarms& all) {
    const RingerState ringer = ringerState(session, all.settings);
    if (session.wantsJson()) {
        return session.printJson(object({{"city", all.city ? cityJson(*all.city) : Json()},
                                         {"alarms", alarmsJson(session, all)},
                                         {"ringer", ringerJson(ringer)}}));
    }
    if (all.city) {
        printAlarmCity(session, all);
    } else {
        session.print(_("You have no cities yet. To choose one: quode city home NAME."));
        session.print();
    }
    printTable(session, all);
    if (!all.anyIsOn()) return;
    session.print();
    printRinger(session, ringer);
}

}  // namespace quode::app
