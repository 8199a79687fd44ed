// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/AlarmBook.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "alarms/AlarmJournal.h"
#include "companion/UserSettings.h"
#include "companion/installation_mark.h"
#include "companion/user_connection.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr const char* notInPlace =
    N_("The event of the alarm is not where it should be: another program changed the calendar at the same time. Try "
       "again.");

// Of a single step: a command does several.
constexpr std::chrono::milliseconds longestPatience{2000};

const AlarmOccurrence* ringOf(int code, const std::vector<AlarmOccurrence>& next) {
    const auto ring = std::ranges::find(next, code, &AlarmOccurrence::code);
    return ring == next.end() ? nullptr : &*ring;
}

// The two together; a message that is the same is said once.
void join(AlarmChange& all, const AlarmChange& one) {
    all.isStored = all.isStored && one.isStored;
    all.isPlaced = all.isPlaced && one.isPlaced;
    all.isBusy = all.isBusy || one.isBusy;
    if (one.message.empty() || all.message.find(one.message) != std::string::npos) return;
    all.message += (all.message.empty() ? "" : " ") + one.message;
}

}  // namespace

AlarmBook::AlarmBook(std::filesystem::path dataFolder, UserDatabase& database, EventStore& calendar,
                     std::chrono::milliseconds patience)
    : dataFolder_(std::move(dataFolder)), database_(&database), calendar_(&calendar), patience_(patience) {
    functions_.setUserDBPath(database.file().string());
    functions_.setEventStore(calendar);
    functions_.setPatience(std::min(patience, longestPatience));
    calendar.setPatience(std::min(patience, longestPatience));
}

AlarmChange AlarmBook::withJournal(const Operation& operation) {
    try {
        AlarmJournal journal(dataFolder_, patience_);
        if (!journal.isHeld()) {
            database_->connection().change([] {});  // a folder that may not be written is better named by what is in it
            return {false, false, journal.problem(), journal.isBusy()};
        }
        AlarmChange result = finishPending(journal);
        result = {true, true, result.message};  // what an earlier program left does not decide about this one
        join(result, operation(journal));
        return result;
    } catch (const AlarmJournalError& error) {
        return {false, false, error.what()};
    }
}

// --- switching

AlarmChange AlarmBook::switchOn(int code) {
    return withJournal([&](AlarmJournal& journal) { return switchAlarm(code, true, journal); });
}

AlarmChange AlarmBook::switchOff(int code) {
    return withJournal([&](AlarmJournal& journal) { return switchAlarm(code, false, journal); });
}

AlarmChange AlarmBook::switchAlarm(int code, bool isOn, AlarmJournal& journal) {
    const std::vector<AlarmOccurrence> next = isOn ? database_->refreshPrayerTimes() : std::vector<AlarmOccurrence>{};
    if (isOn && database_->alarm(code).isOn) return renewOne(code, next, journal);
    const auto run = [&] { return isOn ? functions_.switchOn(code, journal) : functions_.switchOff(code, journal); };
    AlarmChange change = run();
    if (!change.isStored) {
        // The operation gives no reason. A connection that throws one tries the same; the cause may have
        // vanished by now.
        database_->connection().setPatience({});
        database_->connection().change([] {});
        change = run();
        if (!change.isStored) return change;
    }
    // A prayer whose time does not come about within a day has no event.
    if (isOn && !ringOf(code, next)) return functions_.retractEvent(code, journal);
    if (change.ok()) join(change, readBack(code, isOn, next));
    return change;
}

AlarmChange AlarmBook::readBack(int code, bool isOn, const std::vector<AlarmOccurrence>& next) {
    const UserAlarm alarm = database_->alarm(code);
    if (alarm.isOn != isOn) {
        return {false, false, _("Another program switched the alarm at the same time. Check it and try again.")};
    }
    if (isOn ? isInPlace(alarm, next) : alarm.eventIdentifier.empty()) return {};
    return {true, false, _(notInPlace)};
}

// --- events

// Whether the calendar holds what it should for an alarm.
bool AlarmBook::isInPlace(const UserAlarm& alarm, const std::vector<AlarmOccurrence>& next) {
    const AlarmOccurrence* const ring = ringOf(alarm.code, next);
    if (!alarm.isOn || !ring) return alarm.eventIdentifier.empty();
    const FoundEvent found = calendar_->findEvent(alarm.eventIdentifier);
    return found.event && found.event->start == ring->due;
}

AlarmChange AlarmBook::renewOne(int code, const std::vector<AlarmOccurrence>& next, AlarmJournal& journal) {
    const UserAlarm alarm = database_->alarm(code);  // as it is now, with the journal held
    if (isInPlace(alarm, next)) return {};
    if (!alarm.isOn || !ringOf(code, next)) return functions_.retractEvent(code, journal);
    AlarmChange change = functions_.placeEvent(code, journal);
    if (change.ok()) join(change, readBack(code, true, next));
    return change;
}

AlarmChange AlarmBook::renew(const std::function<bool(const UserAlarm&)>& leave) {
    AlarmChange result;
    if (AlarmJournal::isPending(dataFolder_)) join(result, finishPending());
    const std::vector<AlarmOccurrence> next = database_->refreshPrayerTimes();
    for (const UserAlarm& alarm : database_->alarms()) {
        if ((leave && leave(alarm)) || isInPlace(alarm, next)) continue;
        // One after the other, so that a program that switches an alarm does not wait for all of them.
        join(result, withJournal([&](AlarmJournal& journal) { return renewOne(alarm.code, next, journal); }));
    }
    if (!eventsWithoutAlarm().empty()) join(result, removeEventsWithoutAlarm());
    return result;
}

AlarmChange AlarmBook::renewAll(AlarmJournal& journal) {
    const std::vector<AlarmOccurrence> next = database_->refreshPrayerTimes();
    AlarmChange result;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) join(result, renewOne(code, next, journal));
    if (const AlarmChange removed = removeWithoutAlarm(); !removed.ok()) join(result, removed);
    return result;
}

// --- changes that events follow

AlarmChange AlarmBook::changeJournaled(const std::function<void()>& change, const Operation& follow) {
    return withJournal([&](AlarmJournal& journal) {
        const AlarmIntent intent{};
        journal.begin(intent);
        try {
            change();
        } catch (...) {
            journal.end(intent);
            throw;
        }
        const AlarmChange result = follow(journal);
        if (result.ok()) journal.end(intent);
        return result;
    });
}

AlarmChange AlarmBook::change(const std::function<void()>& change) {
    return changeJournaled(change, [this](AlarmJournal& journal) { return renewAll(journal); });
}

AlarmChange AlarmBook::changeLayout(UserEventStore& calendar, CalendarLayout layout,
                                    const std::function<void()>& change) {
    return changeJournaled(change, [&](AlarmJournal& journal) {
        UserEventStore former(dataFolder_, calendar.layout());
        calendar.setLayout(layout);
        if (former.layout() == layout) return renewAll(journal);
        const std::vector<UserAlarm> before = database_->alarms();
        AlarmChange result = renewAll(journal);
        for (const UserAlarm& alarm : before) {
            if (alarm.eventIdentifier.empty() || !former.findEvent(alarm.eventIdentifier).event) continue;
            const StoreStatus removed = former.removeEvent(alarm.eventIdentifier);
            join(result, {true, removed.ok, removed.message});
        }
        return result;
    });
}

// --- what was left

AlarmChange AlarmBook::finishPending() {
    if (!AlarmJournal::isPending(dataFolder_)) return {};
    return withJournal([](AlarmJournal&) { return AlarmChange{}; });
}

AlarmChange AlarmBook::finishPending(AlarmJournal& journal) {
    const std::vector<AlarmIntent> intents = journal.unfinished();
    if (intents.empty()) return {};
    calendar_->removeLeftOvers();
    otherLayout().removeLeftOvers();
    functions_.finishPending(journal);
    const AlarmIntent renewal{};
    if (std::ranges::find(intents, renewal) == intents.end()) return {};
    const AlarmChange result = renewAll(journal);
    if (result.ok()) journal.end(renewal);
    return result;
}

// --- events that no alarm has

UserEventStore AlarmBook::otherLayout() const {
    const bool isFolder = loadSettings(*database_).calendarLayout == CalendarLayout::vdir;
    return {dataFolder_, isFolder ? CalendarLayout::ics : CalendarLayout::vdir};
}

std::vector<CalendarEvent> AlarmBook::withoutAlarmIn(EventStore& calendar, AlarmChange& result) {
    const std::string mark = installationMark(dataFolder_);
    const std::vector<UserAlarm> alarms = database_->alarms();
    EventList list = calendar.ownEvents();
    join(result, {true, list.status.ok, list.status.message});
    std::erase_if(list.events, [&](const CalendarEvent& event) {
        const bool isOurs = !mark.empty() && event.mark == mark;
        return !isOurs || std::ranges::find(alarms, event.identifier, &UserAlarm::eventIdentifier) != alarms.end();
    });
    return list.events;
}

// Another program that rewrites the calendar from an older copy can bring such an event back.
AlarmChange AlarmBook::removeWithoutAlarm() {
    AlarmChange result;
    UserEventStore other = otherLayout();
    for (EventStore* const calendar : {calendar_, static_cast<EventStore*>(&other)}) {
        for (const CalendarEvent& event : withoutAlarmIn(*calendar, result)) {
            const StoreStatus removed = calendar->removeEvent(event.identifier);
            join(result, {true, removed.ok, removed.message});
        }
    }
    return result;
}

std::vector<CalendarEvent> AlarmBook::eventsWithoutAlarm() {
    AlarmChange ignored;
    std::vector<CalendarEvent> events = withoutAlarmIn(*calendar_, ignored);
    UserEventStore other = otherLayout();
    std::ranges::copy(withoutAlarmIn(other, ignored), std::back_inserter(events));
    return events;
}

AlarmChange AlarmBook::removeEventsWithoutAlarm() {
    return withJournal([this](AlarmJournal& journal) {
        const AlarmIntent renewal{};  // a program that is cut off leaves a temporary file, which the next one removes
        journal.begin(renewal);
        const AlarmChange result = removeWithoutAlarm();
        journal.end(renewal);
        return result;
    });
}

}  // namespace quode
