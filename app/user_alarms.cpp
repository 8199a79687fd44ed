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
#include "app/user_data.h"
#include "common/calendar.h"
#include "common/formatting.h"
#include "common/labels.h"
#include "common/printable.h"
#include "companion/RingRecords.h"
#include "companion/SiteChoices.h"
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

// Those of alarms that have since been switched off do not ring.
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
    if (home && home->city) requireReadableChoice(*home->city);
    if (home && !home->city) all.lostHome = home->id;
    if (!home || !home->city) return all;
    all.city = home->city;
    findRings(all, session.now());
    return all;
}

std::string soundOf(const UserAlarms& all, const UserAlarm& alarm) {
    return alarm.sound.empty() ? all.settings.defaultSound : alarm.sound;
}

std::string soundText(const UserAlarms& all, const UserAlarm& alarm) {
    return printable(soundOf(all, alarm));
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

}  // namespace quode::app
