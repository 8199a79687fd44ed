// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/RingKeeper.h"

#include <algorithm>
#include <ranges>

#include "alarmd/ring_decision.h"
#include "texts/translation.h"

namespace quode {
namespace {

using namespace std::chrono;

constexpr hours dayAhead{25};
constexpr hours noteInterval{6};
constexpr seconds offerInterval{30};
constexpr hours tooEarly{1};       // a ring that a wrong clock caused this much too early does not count
constexpr minutes soundIsOver{1};  // what rang longer ago sounds again when it is shown at last

bool rangWithin(const RingRecord& record, const Present& present, seconds time) {
    return areComparable(record.rangAt, present.uptime) && present.uptime.time - record.rangAt.time < time;
}

// Whether a ring is still to be shown.
bool isToBeShown(const RingRecord& record) {
    return record.state != RingState::shown && record.state != RingState::finished &&
           record.state != RingState::dropped;
}

// When it rang, by the present clock; only for what rang since the device started.
sys_seconds rangBy(const RingRecord& record, const Present& present) {
    return present.clock - floor<seconds>(present.uptime.time - record.rangAt.time);
}

// When a ring has begun to be due, by the present clock.
sys_seconds dueSince(const RingRecord& record, const Present& present) {
    if (record.state == RingState::snoozed || !areComparable(record.rangAt, present.uptime)) return record.ringAt;
    // By this clock another one brought it too early, and nobody saw it: it waits for its time.
    return rangBy(record, present) < record.alarm.due ? record.alarm.due : record.ringAt;
}

// Whether the user wants none of the rings up to a moment. A clock that is back moves the moment of a snooze, but not
// that of the alarm, whose mute had ended by then.
bool isSilenced(const UserAlarm& alarm, const RingRecord& record) {
    return std::max(record.ringAt, record.alarm.due) <= alarm.silentUntil();
}

// Whether the time that is shown with a ring has minutes of the user's own.
bool isAdjusted(const Choices& choices, const RingRecord& record) {
    const bool isOfHome = choices.home && choices.home->city && choices.home->city->name == record.city;
    if (!isOfHome) return false;
    const CityDay day = computeCityDay(siteOf(*choices.home->city), record.alarm.date);
    return day.method.mark(record.alarm.code).adjusted != 0;
}

}  // namespace

RingKeeper::RingKeeper(const std::filesystem::path& dataFolder, RingDesk& desk,
                       std::function<void(std::string_view)> tell)
    : desk_(&desk), tell_(std::move(tell)), records_(dataFolder), decided_(records_.decided()) {}

void RingKeeper::decideDue(const Choices& choices, const Present& present, const EventStart& eventStart) {
    records_.save();  // what could not be written before
    followService();
    const DecidedTime::Span span = decided_.begin(present);
    if (span.isTakenBack || span.shift != seconds(0)) takeBack(span, present);
    const std::vector<RingRecord> due = dueRings(choices, present, span, eventStart);
    for (const RingRecord& record : due) decide(choices, record, present);
    offerUnseen(choices, present);
    decided_.finish(present);
    // Another process is to know what the clock was before.
    noteDecided(choices, present, !due.empty() || span.isTakenBack || span.shift != seconds(0));
    isFirst_ = false;
}

std::vector<RingRecord> RingKeeper::dueRings(const Choices& choices, const Present& present,
                                             const DecidedTime::Span& span, const EventStart& eventStart) const {
    std::vector<RingRecord> due;
    for (const RingRecord& record : records_.unfinished()) {
        const bool isPending = record.state == RingState::begun || record.state == RingState::snoozed;
        const bool isAwaited = awaited_.contains({record.alarm.code, record.alarm.due});
        if (isPending && !isAwaited && record.ringAt <= present.clock) due.push_back(record);
    }
    if (!choices.home || !choices.home->city) return due;
    const CityRecord& city = *choices.home->city;
    for (const AlarmOccurrence& alarm : alarmOccurrences(siteOf(city), choices.rules(), span.since, present.clock)) {
        if (span.holds(alarm.due) || records_.find(alarm.code, alarm.due)) continue;
        if (!counts(alarm, choices, present, eventStart)) continue;
        RingRecord& record = due.emplace_back();
        record.alarm = alarm;
        record.ringAt = alarm.due;
        record.city = city.name;
    }
    return due;
}

void RingKeeper::noteDecided(const Choices& choices, const Present& present, bool isUrgent) {
    const bool hasHome = choices.home && choices.home->city;
    formerCity_ = hasHome ? choices.home->city : std::nullopt;
    formerRules_ = choices.rules();
    // An alarm that is new must not ring for the past after a crash.
    const bool choseOther = std::exchange(formerChoices_, choices.text()) != choices.text();
    const std::optional<DecidedNote>& noted = records_.decided();
    const bool isOld = !noted || noted->until > present.clock || present.clock - noted->until > noteInterval;
    if (!isUrgent && !choseOther && !isOld && !isFirst_) return;
    DecidedNote note = *decided_.note();
    note.city = hasHome ? choices.home->id : 0;
    note.rules = formerRules_;
    records_.setDecided(note);
}

void RingKeeper::rest() {
    if (!decided_.note() || isFirst_) return;
    DecidedNote note = *decided_.note();
    if (records_.decided()) {
        note.city = records_.decided()->city;
        note.rules = records_.decided()->rules;
    }
    records_.setDecided(note);
}

// --- what counts

// Whether an alarm that was not decided yet was to ring at a moment that is over.
bool RingKeeper::counts(const AlarmOccurrence& alarm, const Choices& choices, const Present& present,
                        const EventStart& eventStart) const {
    if (!isFirst_) return wasChosen(alarm) || present.clock - alarm.due < stillInTime;
    // The event shows what the user chose while no service ran: it was placed at that moment.
    const UserAlarm* const chosen = choices.alarm(alarm.code);
    const std::optional<sys_seconds> start = chosen ? eventStart(*chosen) : std::nullopt;
    if (start == alarm.due) return true;
    const bool isReminder = chosen && alarm.due != alarm.prayer + minutes(chosen->offset);
    if (start && !isReminder && standsElsewhere(*chosen, *start, *choices.home->city, present.clock)) return false;
    const std::optional<DecidedNote>& note = records_.decided();
    if (!note || note->city != choices.home->id) return false;
    return std::ranges::any_of(
        note->rules, [&](const AlarmRule& rule) { return rule.code == alarm.code && rule.offset == chosen->offset; });
}

// Whether an event waits for the next ring of its alarm.
bool RingKeeper::standsElsewhere(const UserAlarm& alarm, sys_seconds start, const CityRecord& city,
                                 sys_seconds now) const {
    const std::vector<AlarmRule> rule{alarm.rule()};
    return !alarmOccurrences(siteOf(city), rule, std::max(now, start - seconds(1)), start).empty();
}

// Whether an alarm was to ring already when all was decided last: one that the user has switched on, or moved, after
// its moment is not late but comes tomorrow.
bool RingKeeper::wasChosen(const AlarmOccurrence& alarm) const {
    if (!formerCity_) return false;
    const std::vector<AlarmOccurrence> former =
        alarmOccurrences(siteOf(*formerCity_), formerRules_, alarm.due - seconds(1), alarm.due);
    return std::ranges::find(former, alarm) != former.end();
}

// --- the clock was set

void RingKeeper::takeBack(const DecidedTime::Span& span, const Present& present) {
    for (RingRecord record : records_.all()) {
        const sys_seconds due = record.alarm.due;
        if (record.state == RingState::dropped) {
            if (!span.isTakenBack || due <= span.since) continue;
            if (due > present.clock) {
                records_.forget(record.alarm.code, due);
            } else {
                record.ringAt = due;
                record.clockZero = zeroOf(present);
                record.notification = {};
                keepState(record, RingState::begun);
            }
        } else if (span.wrongSince && rangTooEarly(record, *span.wrongSince, present)) {
            desk_->silence(record.alarm);
            desk_->close(record.notification);
            records_.forget(record.alarm.code, due);
        } else if (isToBeShown(record) && areComparable(record.rangAt, present.uptime)) {
            // So many minutes the user sleeps on, or the ring has not been visible, whatever the clock shows. A process
            // that was killed after this may have left it to be done again.
            record.ringAt += zeroOf(present) - record.clockZero.value_or(zeroOf(present) - span.shift);
            record.clockZero = zeroOf(present);
            records_.keep(record);
        }
    }
}

// Whether a wrong clock caused a ring that is still due, or can still ring late.
bool RingKeeper::rangTooEarly(const RingRecord& record, milliseconds wrongSince, const Present& present) const {
    const bool isOver = record.alarm.due + latestRing < present.clock;
    if (isOver || !areComparable(record.rangAt, present.uptime)) return false;
    if (record.rangAt.time < wrongSince) return false;
    return record.alarm.due - rangBy(record, present) > tooEarly;
}

// --- ringing

void RingKeeper::decide(const Choices& choices, RingRecord record, const Present& present) {
    record.ringAt = dueSince(record, present);
    const RingDecision decision = decideRing(record.ringAt, present.clock);
    if (decision == RingDecision::wait) return;
    const UserAlarm* const alarm = choices.alarm(record.alarm.code);
    // It may have been switched off while it was snoozed.
    if (!alarm || !alarm->isOn) return keepState(record, RingState::finished);
    if (isSilenced(*alarm, record)) return keepState(record, RingState::finished);
    const bool otherRings = choices.ringer == Ringer::evolution;
    if (decision == RingDecision::drop || otherRings) {
        const auto late = floor<minutes>(present.clock - record.ringAt);
        if (!otherRings) tell_(_("An alarm was missed by {} min and does not ring.", late.count()));
        record.rangAt = present.uptime;
        return keepState(record, RingState::dropped);
    }
    ring(choices, record, present, Sound::yes);
}

void RingKeeper::ring(const Choices& choices, RingRecord record, const Present& present, Sound sound) {
    const Key key{record.alarm.code, record.alarm.due};
    const UserAlarm* const alarm = choices.alarm(record.alarm.code);
    const Ring ring{record.alarm,
                    record.city,
                    alarm->sound.empty() ? choices.settings.defaultSound : alarm->sound,
                    floor<minutes>(present.clock - record.ringAt),
                    choices.settings.manner,
                    isAdjusted(choices, record)};
    const std::string run = desk_->run();
    const bool isSameRun = !run.empty() && record.notification.run == run;
    record.isRepeated = isSameRun && (record.isRepeated || record.state == RingState::begun);
    record.rangAt = present.uptime;
    record.clockZero = zeroOf(present);
    record.notification = {run, 0};
    if (sound == Sound::yes) keepState(record, RingState::begun);
    awaited_.insert(key);
    desk_->show(ring, [this, key](const std::optional<NotificationId>& shown) { answered(key, shown); });
    if (awaited_.contains(key)) {
        record.notification.run = desk_->run();
        keepState(record, RingState::asked);
    }
    if (sound == Sound::yes) desk_->sound(ring);
}

void RingKeeper::answered(const Key& key, const std::optional<NotificationId>& shown) {
    awaited_.erase(key);
    std::optional<RingRecord> record = records_.find(key.first, key.second);
    if (!record) return;
    const bool isOpen =
        record->state == RingState::begun || record->state == RingState::asked || record->state == RingState::unseen;
    if (!isOpen) {
        if (shown) desk_->close(*shown);
        return;
    }
    if (shown) record->notification = *shown;
    keepState(*record, shown ? RingState::shown : RingState::unseen);
    if (!shown && onUnseen) onUnseen();
}

// --- the notification service

// Finds out what became of rings of an earlier run: of this process, or of the notification service.
void RingKeeper::followService() {
    const std::string run = desk_->run();
    for (RingRecord record : records_.unfinished()) {
        const bool isOfThisRun = !run.empty() && record.notification.run == run;
        if (record.state == RingState::shown && !isOfThisRun && !run.empty()) {
            keepState(record, RingState::finished);
        } else if (record.state == RingState::asked && !awaited_.contains({record.alarm.code, record.alarm.due})) {
            // The bus delivers what was sent even after the sender has exited; the number is unknown then.
            keepState(record, isOfThisRun ? RingState::shown : RingState::unseen);
        }
    }
}

void RingKeeper::offerUnseen(const Choices& choices, const Present& present) {
    const std::string run = desk_->run();
    for (RingRecord record : records_.unfinished()) {
        const bool isAwaited = awaited_.contains({record.alarm.code, record.alarm.due});
        if (record.state != RingState::unseen || isAwaited) continue;
        record.ringAt = dueSince(record, present);
        const UserAlarm* const alarm = choices.alarm(record.alarm.code);
        const RingDecision decision = decideRing(record.ringAt, present.clock);
        if (!alarm || !alarm->isOn || isSilenced(*alarm, record)) {
            keepState(record, RingState::finished);
        } else if (decision == RingDecision::drop) {
            tell_(_("An alarm rang, but for 15 min no notification service was there to show it."));
            keepState(record, RingState::dropped);
        } else if (!run.empty() && decision != RingDecision::wait) {
            // A service that refuses is not asked all the time.
            if (record.notification.run == run && rangWithin(record, present, offerInterval)) continue;
            ring(choices, record, present, rangWithin(record, present, soundIsOver) ? Sound::no : Sound::yes);
        }
    }
}

// --- answers

bool RingKeeper::stop(const NotificationId& notification) {
    return finish(notification, RingState::finished, {});
}

bool RingKeeper::closed(const NotificationId& notification) {
    const std::optional<RingRecord> record = shownAs(notification);
    if (record) finish(*record, RingState::finished, {});
    return record.has_value();
}

bool RingKeeper::snooze(const NotificationId& notification, sys_seconds ringAt) {
    return finish(notification, RingState::snoozed, ringAt);
}

// The newest ring that is shown under a number: a service may give a number again.
std::optional<RingRecord> RingKeeper::shownAs(const NotificationId& notification) const {
    for (const RingRecord& record : std::views::reverse(records_.unfinished())) {
        if (record.state == RingState::shown && record.notification == notification) return record;
    }
    return std::nullopt;
}

// The newest ring for which the desktop was perhaps asked once more than is known.
std::optional<RingRecord> RingKeeper::perhapsShownAs(const NotificationId& notification) const {
    if (std::optional<RingRecord> record = shownAs({notification.run, 0})) return record;
    for (const RingRecord& record : std::views::reverse(records_.all())) {
        if (record.isRepeated && record.notification.run == notification.run) return record;
    }
    return std::nullopt;
}

// All that ring, with a notification or without.
bool RingKeeper::finishAll(RingState state, sys_seconds ringAt) {
    bool isAny = false;
    for (RingRecord record : records_.unfinished()) {
        if (record.state == RingState::snoozed) continue;
        if (record.notification.number != 0) desk_->close(record.notification);
        finish(record, state, ringAt);
        isAny = true;
    }
    return isAny;
}

bool RingKeeper::finish(const NotificationId& notification, RingState state, sys_seconds ringAt) {
    if (notification.number == 0) return finishAll(state, ringAt);
    std::optional<RingRecord> record = shownAs(notification);
    if (!record) record = perhapsShownAs(notification);
    if (!record) return false;
    desk_->close(notification);
    const bool isShownTwice = record->notification.number != 0 && record->notification != notification;
    if (isShownTwice) desk_->close(record->notification);
    finish(*record, state, ringAt);
    return true;
}

void RingKeeper::finish(RingRecord record, RingState state, sys_seconds ringAt) {
    desk_->silence(record.alarm);
    record.notification.number = 0;
    if (state == RingState::snoozed) {
        record.ringAt = ringAt;
        const std::optional<DecidedNote>& note = decided_.note();
        record.clockZero = note ? std::optional(zeroOf({note->clock, note->uptime})) : std::nullopt;
    }
    keepState(record, state);
}

void RingKeeper::keepState(RingRecord record, RingState state) {
    record.state = state;
    records_.keep(record);
}

// --- the next moment

std::optional<sys_seconds> RingKeeper::next(const Choices& choices, const Present& present) const {
    std::optional<sys_seconds> next = decided_.holdEnds(present);
    const auto comes = [&next](sys_seconds moment) { next = next ? std::min(*next, moment) : moment; };
    const sys_seconds now = present.clock;
    if (choices.home && choices.home->city) {
        const auto coming = alarmOccurrences(siteOf(*choices.home->city), choices.rules(), now, now + dayAhead);
        if (!coming.empty()) comes(coming.front().due);
    }
    for (const RingRecord& record : records_.unfinished()) {
        if (record.state == RingState::snoozed && record.ringAt > now) comes(record.ringAt);
        if (record.state == RingState::unseen) comes(now + offerInterval);
    }
    return next;
}

}  // namespace quode
