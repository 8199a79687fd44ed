// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/AlarmKeeper.h"

#include <fmt/format.h>

#include <algorithm>

#include "alarmd/ring_decision.h"
#include "alarmd/ring_texts.h"
#include "data/DatabaseFunctions.h"
#include "data/alarm_moment.h"

namespace quode {
namespace {

using namespace std::chrono;

constexpr seconds retryAfter{30};
constexpr hours farBack{24};  // rings from before are not even looked for
constexpr hours dayAhead{25};
constexpr hours noteInterval{6};
constexpr minutes timeToRing{2};

std::vector<AlarmRule> rulesOf(const std::vector<UserAlarm>& alarms) {
    std::vector<AlarmRule> rules;
    for (const UserAlarm& alarm : alarms) {
        if (alarm.isOn) rules.push_back({alarm.code, alarm.offset});
    }
    return rules;
}

// All that the user chooses, as one text.
std::string choicesIn(const UserDatabase& database) {
    std::string text;
    for (const UserCity& city : database.cities()) {
        text += fmt::format("{} {};", city.id, city.isHome);
        if (city.city) text += fmt::format("{} {} {};", city.city->latitude, city.city->longitude, city.city->zone);
    }
    for (const UserAlarm& alarm : database.alarms()) {
        text += fmt::format("{} {} {};", alarm.offset, alarm.isOn, alarm.sound);
    }
    const UserSettings settings = loadSettings(database);
    return text + fmt::format("{} {} {}", settings.defaultSound, int(settings.calendarLayout), int(settings.ringer));
}

}  // namespace

sys_seconds AlarmKeeper::wake() {
    const sys_seconds now = floor<seconds>(with_.clock->now());
    sys_seconds next = now + retryAfter;
    const bool succeeded = attempt([&] {
        UserDatabase database = openDatabase();
        const UserSettings settings = loadSettings(database);
        // Ringing comes first: what else fails must not keep an alarm silent.
        const bool decided = attempt([&] { decideDue(database, now); });
        next = nextWake(database, now);
        const bool renewed = attempt([&] {
            const StoreStatus status = with_.changeLayout(settings.calendarLayout);
            if (!status.ok) tellOnce(status.message);
            renewEvents(database, settings, now);
        });
        if (renewAgainAt_) next = std::min(next, *renewAgainAt_);
        choices_ = choicesIn(database);
        if (!decided || !renewed) next = std::min(next, now + retryAfter);
    });
    if (succeeded && next > now + retryAfter) lastFailure_.clear();
    return next;
}

bool AlarmKeeper::choicesChanged() {
    bool changed = true;  // what cannot be read may have changed
    attempt([&] { changed = choicesIn(openDatabase()) != choices_; });
    return changed;
}

UserDatabase AlarmKeeper::openDatabase() {
    UserDatabase database(with_.dataFolder, *with_.cities, *with_.clock, with_.lockPatience);
    for (const std::string& notice : database.notices()) with_.tell(notice);
    return database;
}

// --- ringing

void AlarmKeeper::decideDue(UserDatabase& database, sys_seconds now) {
    RingRecords records(database);
    const std::optional<sys_seconds> noted = records.decidedUntil();
    // A clock that was put back has left the future undecided.
    const sys_seconds since = std::clamp(decidedUntil_.value_or(noted.value_or(now)), now - farBack, now);
    const std::optional<UserCity> home = database.home();
    // An alarm that is new must not ring for the past after a crash.
    const bool choseAnew = choicesIn(database) != choices_;
    bool anyDecided = choseAnew || !noted || *noted > now || now - *noted > noteInterval;
    takeOverShown(database);
    const std::vector<AlarmRule> rules = rulesOf(database.alarms());
    if (home && home->city) {
        std::vector<RingRecord> due = unfinished(database);
        std::erase_if(due, [&](const RingRecord& each) { return each.state == RingState::shown || each.ringAt > now; });
        for (const AlarmOccurrence& alarm : alarmOccurrences(siteOf(*home->city), rules, since, now)) {
            const bool counts = wasChosen(alarm) || now - alarm.due < stillInTime;
            if (counts && !isKnown(database, alarm)) due.push_back({alarm, RingState::begun, alarm.due, 0});
        }
        for (const RingRecord& record : due) decide(database, *home, record, now);
        anyDecided = anyDecided || !due.empty();
    }
    decidedUntil_ = now;
    decidedFor_ = home ? home->city : std::nullopt;
    decidedRules_ = rules;
    for (const auto& [key, record] : std::map(unsaved_)) keep(database, record);
    if (!anyDecided) return;
    records.setDecidedUntil(now);
    records.forgetFarFrom(now);
}

// Whether an alarm was to ring already when all was decided last: one that the user has switched on, or moved, after
// its moment is not late but comes tomorrow. What was chosen before this process began is not known.
bool AlarmKeeper::wasChosen(const AlarmOccurrence& alarm) const {
    if (!decidedUntil_) return true;
    if (!decidedFor_) return false;
    const std::vector<AlarmOccurrence> former =
        alarmOccurrences(siteOf(*decidedFor_), decidedRules_, alarm.due - seconds(1), alarm.due);
    return std::ranges::find(former, alarm) != former.end();
}

void AlarmKeeper::decide(UserDatabase& database, const UserCity& home, RingRecord record, sys_seconds now) {
    const RingDecision decision = decideRing(record.ringAt, now);
    if (decision == RingDecision::wait) return;
    if (!database.alarm(record.alarm.code).isOn) {  // switched off while it was snoozed
        record.state = RingState::finished;
        return keep(database, record);
    }
    const auto late = floor<minutes>(now - record.ringAt);
    const bool otherRings = loadSettings(database).ringer == Ringer::evolution;
    if (decision == RingDecision::drop || otherRings) {
        if (!otherRings) {
            with_.tell(fmt::format("An alarm was missed by {} minutes and does not ring any more.", late.count()));
        }
        record.state = RingState::dropped;
        keep(database, record);
    } else {
        ring(database, home, record, late);
    }
}

// Rings that an earlier process has shown, but did not live to note so.
void AlarmKeeper::takeOverShown(UserDatabase& database) {
    for (RingRecord record : unfinished(database)) {
        const std::optional<std::uint32_t> number = mark_.find(record);
        if (record.state != RingState::begun || !number) continue;
        record.state = RingState::shown;
        record.notification = *number;
        keep(database, record);
    }
}

void AlarmKeeper::ring(UserDatabase& database, const UserCity& home, RingRecord record, minutes late) {
    std::string sound = database.alarm(record.alarm.code).sound;
    if (sound.empty()) sound = loadSettings(database).defaultSound;
    const Ring ring{record.alarm, home.city->name, sound, late};
    record.state = RingState::begun;
    keep(database, record);
    record.notification = with_.desk->show(ring);
    mark_.set(record);
    record.state = RingState::shown;
    keep(database, record);
    with_.desk->sound(ring, record.notification);
}

void AlarmKeeper::stop(std::uint32_t number) {
    finish(number, RingState::finished, {});
}

void AlarmKeeper::snooze(std::uint32_t number) {
    finish(number, RingState::snoozed, floor<seconds>(with_.clock->now()) + snoozeTime);
}

// The user has answered the ring that is shown under a number.
void AlarmKeeper::finish(std::uint32_t number, RingState state, sys_seconds ringAt) {
    attempt([&] {
        UserDatabase database = openDatabase();
        for (RingRecord record : unfinished(database)) {
            if (record.state != RingState::shown || record.notification != number) continue;
            with_.desk->silence(number);
            record.state = state;
            record.notification = 0;
            if (state == RingState::snoozed) record.ringAt = ringAt;
            keep(database, record);
        }
    });
}

void AlarmKeeper::rest() {
    attempt([&] {
        UserDatabase database = openDatabase();
        if (decidedUntil_) RingRecords(database).setDecidedUntil(*decidedUntil_);
        for (const auto& [key, record] : std::map(unsaved_)) keep(database, record);
    });
}

// --- notes

bool AlarmKeeper::isKnown(UserDatabase& database, const AlarmOccurrence& alarm) const {
    return unsaved_.contains({alarm.code, alarm.due}) || RingRecords(database).find(alarm.code, alarm.due);
}

// What the database and the memory hold together.
std::vector<RingRecord> AlarmKeeper::unfinished(UserDatabase& database) const {
    std::vector<RingRecord> records = RingRecords(database).unfinished();
    std::erase_if(records, [this](const RingRecord& each) {
        return unsaved_.contains({each.alarm.code, each.alarm.due});
    });
    for (const auto& [key, record] : unsaved_) {
        if (record.state <= RingState::snoozed) records.push_back(record);
    }
    return records;
}

void AlarmKeeper::keep(UserDatabase& database, const RingRecord& record) {
    const RingKey key{record.alarm.code, record.alarm.due};
    if (attempt([&] { RingRecords(database).keep(record); })) {
        unsaved_.erase(key);
    } else {
        unsaved_[key] = record;
    }
}

// --- events

void AlarmKeeper::renewEvents(UserDatabase& database, const UserSettings& settings, sys_seconds now) {
    renewAgainAt_.reset();
    const std::vector<AlarmOccurrence> next = database.refreshPrayerTimes();
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        // Read as late as possible: the user may switch it off while the events of the others are written.
        const UserAlarm alarm = database.alarm(code);
        if (settings.ringer == Ringer::evolution && mayStillRing(alarm, now)) {
            renewAgainAt_ = now + timeToRing;
        } else {
            renewEvent(database, alarm, next);
        }
    }
}

// Whether another program is just about to ring for an event, which must not be moved away under its hands.
bool AlarmKeeper::mayStillRing(const UserAlarm& alarm, sys_seconds now) const {
    if (!alarm.isOn || alarm.eventIdentifier.empty()) return false;
    const std::optional<CalendarEvent> event = with_.calendar->findEvent(alarm.eventIdentifier).event;
    return event && event->start <= now && now - event->start < timeToRing;
}

// Brings the event of an alarm to its next ring, unless it is there already. A prayer whose time does not come about
// within a day has no event.
void AlarmKeeper::renewEvent(UserDatabase& database, const UserAlarm& alarm, const std::vector<AlarmOccurrence>& next) {
    if (!alarm.isOn) {
        if (!alarm.eventIdentifier.empty()) DatabaseFunctions().deleteAlarm(alarm.code);
        return;
    }
    const auto ring = std::ranges::find(next, alarm.code, &AlarmOccurrence::code);
    if (ring == next.end()) {
        if (alarm.eventIdentifier.empty()) return;
        with_.calendar->removeEvent(alarm.eventIdentifier);
        database.forgetEvent(alarm.code);
        return;
    }
    const FoundEvent found = with_.calendar->findEvent(alarm.eventIdentifier);
    if (!found.status.ok) tellOnce(found.status.message);
    if (found.event && found.event->start == ring->due) return;
    DatabaseFunctions().reCalculateAlarm(alarm.code);
}

// --- the next moment

sys_seconds AlarmKeeper::nextWake(UserDatabase& database, sys_seconds now) {
    sys_seconds next = nextMidnight(now);
    const std::optional<UserCity> home = database.home();
    if (home && home->city) {
        const auto coming = alarmOccurrences(siteOf(*home->city), rulesOf(database.alarms()), now, now + dayAhead);
        if (!coming.empty()) next = std::min(next, coming.front().due);
    }
    for (const RingRecord& record : unfinished(database)) {
        if (record.state == RingState::snoozed && record.ringAt > now) next = std::min(next, record.ringAt);
    }
    return next;
}

sys_seconds AlarmKeeper::nextMidnight(sys_seconds now) const {
    const CivilTime today = with_.clock->civilTime(now);
    const year_month_day tomorrow = sys_days(year(today.year) / today.month / today.day) + days(1);
    const VAKDate midnight =
        VAKDateMake(int(unsigned(tomorrow.day())), int(unsigned(tomorrow.month())), int(tomorrow.year()), 0, 0, 0);
    return std::max(instantOfWallClock(*with_.clock, midnight).value_or(now + days(1)), now + minutes(1));
}

// --- failures

// Does something; false when it failed, which is told.
bool AlarmKeeper::attempt(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const std::exception& error) {
        tellOnce(error.what());
        return false;
    }
}

// A failure that goes on is told once.
void AlarmKeeper::tellOnce(const std::string& message) {
    if (message == lastFailure_) return;
    lastFailure_ = message;
    with_.tell(message);
}

}  // namespace quode
