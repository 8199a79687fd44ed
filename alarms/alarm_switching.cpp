// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The operations of DatabaseFunctions that change an alarm's row and event together.
#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include "alarms/AlarmJournal.h"
#include "alarms/DatabaseFunctions.h"
#include "alarms/alarm_moment.h"
#include "astro/prayer.h"
#include "common/GlobalFuncs.h"
#include "common/calendar.h"
#include "common/civil_date.h"
#include "platform/EventStore.h"
#include "texts/translation.h"

namespace quode {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using std::chrono::sys_seconds;
using Kind = AlarmIntent::Kind;

// The blanks are part of the texts.
constexpr const char* activeUpdate = " UPDATE USER_ALARMS SET ACTIVE = {}  WHERE TIMEID = {} ";
constexpr const char* eventUpdate = " UPDATE USER_ALARMS SET EVENTID = '{}'  WHERE TIMEID = {} ";

// An identifier with a quote would end the text of the statement early.
bool hasQuote(const std::string& text) {
    return text.find('\'') != std::string::npos;
}

VAKDate presentOn(const Clock& clock) {
    return recordOf(clock.civilTime(clock.now()));
}

VAKDate oneMinuteLater(VAKDate date) {
    ++date.Minutes;
    return calendar::JulianToGregorian(calendar::GregorianDateToJulian(date));
}

}  // namespace

// ---- operations for a caller without the journal

void DatabaseFunctions::reCalculateAlarm(int code) noexcept {
    alone("reCalculateAlarm", code, &DatabaseFunctions::switchOn);
}

void DatabaseFunctions::deleteAlarm(int code) noexcept {
    alone("deleteAlarm", code, &DatabaseFunctions::switchOff);
}

AlarmChange DatabaseFunctions::alone(const char* name, int code, Operation operation) noexcept {
    if (!globalFuncs_->fileExists(userDBPath_)) {
        return {false, false, _("There is no user database yet. Choose a city: quode city home NAME")};
    }
    patienceEnds_ = steady_clock::now() + patience_;
    const AlarmChange change = guarded(name, [&] {
        AlarmJournal journal(std::filesystem::path(userDBPath_).parent_path(), patience_);
        if (!journal.isHeld()) throw std::runtime_error(journal.problem());
        finishPending(journal);
        return (this->*operation)(code, journal);
    });
    patienceEnds_.reset();
    return change;
}

template <typename Action>
AlarmChange DatabaseFunctions::guarded(const char* operation, const Action& action) noexcept {
    try {
        return action();
    } catch (const std::exception& error) {
        userDB_.reset();
        logFailure(operation, error.what());
        try {
            return {false, false, error.what()};
        } catch (const std::exception&) {
            return {false, false, {}};
        }
    }
}

milliseconds DatabaseFunctions::patienceLeft() const {
    if (!patienceEnds_) return patience_;
    return std::max(std::chrono::ceil<milliseconds>(*patienceEnds_ - steady_clock::now()), milliseconds(1));
}

EventStore* DatabaseFunctions::store() const {
    EventStore* const store = store_ ? store_ : globalFuncs_->platform().eventStore.get();
    if (store && patienceEnds_) store->setPatience(patienceLeft());
    return store;
}

// ---- operations for a caller that holds the journal

AlarmChange DatabaseFunctions::switchOn(int code, AlarmJournal& journal) {
    const int timeId = alarmNumber(code);
    return writeEvent(timeId, readAlarmRow(timeId), journal, true);
}

AlarmChange DatabaseFunctions::switchOff(int code, AlarmJournal& journal) {
    const int timeId = alarmNumber(code);
    return removeEvent(timeId, readAlarmRow(timeId), journal, true);
}

AlarmChange DatabaseFunctions::placeEvent(int code, AlarmJournal& journal) {
    const int timeId = alarmNumber(code);
    const AlarmRow alarm = readAlarmRow(timeId);
    return isOn(timeId) ? writeEvent(timeId, alarm, journal, false) : removeEvent(timeId, alarm, journal, false);
}

AlarmChange DatabaseFunctions::retractEvent(int code, AlarmJournal& journal) {
    const int timeId = alarmNumber(code);
    return removeEvent(timeId, readAlarmRow(timeId), journal, false);
}

std::optional<DatabaseFunctions::Moments> DatabaseFunctions::momentsOf(const AlarmRow& alarm) const {
    const Platform& platform = globalFuncs_->platform();
    const Clock& clock = platform.alarmClock ? *platform.alarmClock : *platform.clock;
    const VAKDate start = nextAlarmMoment(presentOn(clock), alarm.prayTime, alarm.offset);
    VAKDate end = start;  // keeps the day of the start, even past midnight
    const VAKDate later = oneMinuteLater(start);
    end.Hours = later.Hours;
    end.Minutes = later.Minutes;
    const std::optional<sys_seconds> startInstant = instantOfWallClock(clock, start);
    const std::optional<sys_seconds> endInstant = instantOfWallClock(clock, end);
    if (!startInstant || !endInstant) return std::nullopt;
    return Moments{*startInstant, *endInstant};
}

// Writes the event of an alarm, and stores its identifier.
AlarmChange DatabaseFunctions::writeEvent(int timeId, const AlarmRow& alarm, AlarmJournal& journal, bool switches) {
    EventStore* const store = this->store();
    const FoundEvent found = store ? store->findEvent(alarm.eventIdentifier) : FoundEvent{};
    CalendarEvent event = found.event.value_or(CalendarEvent{});
    // A calendar that cannot be read now may still contain the event, which must not remain there.
    const bool mayBeThere = !found.status.ok && !alarm.eventIdentifier.empty() && !hasQuote(alarm.eventIdentifier);
    const std::string former = mayBeThere ? alarm.eventIdentifier : event.identifier;
    event.identifier = former.empty() && store ? store->newIdentifier() : former;

    const AlarmIntent intent{Kind::on, timeId, event.identifier};
    journal.begin(intent);
    if (switches && !storeActive(timeId, true)) {
        journal.end(intent);
        return notStored();
    }
    const auto giveUp = [&](const std::string& message) {
        journal.end(intent);
        logFailure("writeEvent", message.c_str());
        return AlarmChange{true, false, message};
    };
    const std::optional<Moments> moments = momentsOf(alarm);
    if (!moments) return giveUp(_("The time of the alarm leads to no date. Check the clock of this device."));
    event.title = "Prayer Alarm";
    event.location = "Quode";
    event.start = moments->start;
    event.end = moments->end;
    event.alarmOffset = std::chrono::seconds{0};
    event.allDay = false;
    SavedEvent saved;
    saved.identifier = alarm.eventIdentifier;
    if (store) saved = store->saveEvent(event);
    const std::string identifier = saved.status.ok ? saved.identifier : former;
    if (hasQuote(identifier)) {
        return giveUp(
            _("The calendar gave the event an identifier with a quote, which cannot be kept: {}", identifier));
    }
    const bool isNamed = storeEventIdentifier(timeId, identifier) || identifier == alarm.eventIdentifier;
    // Unfinished work stays in the journal for the next holder.
    if (saved.status.ok && isNamed) journal.end(intent);
    if (!isNamed) {
        dropEvent(identifier);
        return {true, false, notStored().message};
    }
    return {true, saved.status.ok, saved.status.message};
}

// Removes the event of an alarm, after the row: the next holder of the journal removes an event that is left over.
AlarmChange DatabaseFunctions::removeEvent(int timeId, const AlarmRow& alarm, AlarmJournal& journal, bool switches) {
    const std::string& event = alarm.eventIdentifier;
    const AlarmIntent intent{switches ? Kind::off : Kind::drop, timeId, event};
    if (switches || !event.empty()) journal.begin(intent);
    const bool isForgotten = storeEventIdentifier(timeId, "");
    if (!isForgotten || (switches && !storeActive(timeId, false))) {
        const AlarmChange failure = notStored();
        if (!isForgotten || storeEventIdentifier(timeId, event)) journal.end(intent);
        return failure;
    }
    EventStore* const store = this->store();
    const FoundEvent found = store ? store->findEvent(event) : FoundEvent{};
    const StoreStatus status = found.event ? store->removeEvent(event) : found.status;
    if (!status.ok) journal.begin({Kind::drop, timeId, event});
    journal.end(intent);
    return {true, status.ok, status.message};
}

// Removes an event that no row refers to.
// Returns true when the calendar certainly does not contain it
bool DatabaseFunctions::dropEvent(const std::string& identifier) {
    EventStore* const store = this->store();
    if (!store || identifier.empty()) return true;
    const FoundEvent found = store->findEvent(identifier);
    return found.event ? store->removeEvent(identifier).ok : found.status.ok;
}

// ---- unfinished work of an earlier program

void DatabaseFunctions::finishPending(AlarmJournal& journal) noexcept {
    guarded("finishPending", [&] {
        for (const AlarmIntent& intent : journal.unfinished()) {
            if (intent.kind != Kind::renew) finish(intent, journal);
        }
        return AlarmChange{};
    });
}

void DatabaseFunctions::finish(const AlarmIntent& intent, AlarmJournal& journal) {
    const AlarmRow alarm = readAlarmRow(intent.timeId);
    const bool isNamed = alarm.eventIdentifier == intent.event;
    const bool goesOff = intent.kind == Kind::off && (isNamed || alarm.eventIdentifier.empty());
    if (goesOff && !(storeEventIdentifier(intent.timeId, "") && storeActive(intent.timeId, false))) return;
    const bool isLeftOver = goesOff || !isNamed;
    if (isLeftOver && !dropEvent(intent.event)) {
        if (intent.kind == Kind::drop) return;
        journal.begin({Kind::drop, intent.timeId, intent.event});
    }
    const bool isPlaced =
        intent.kind != Kind::on || !isOn(intent.timeId) || writeEvent(intent.timeId, alarm, journal, false).isPlaced;
    // An event that still cannot be written stays in the journal, under the identifier that it gets now.
    if (isPlaced || !isNamed) journal.end(intent);
}

// ---- the database

bool DatabaseFunctions::storeEventIdentifier(int timeId, const std::string& identifier) {
    return executeSQL(fmt::format(eventUpdate, identifier, timeId));
}

bool DatabaseFunctions::storeActive(int timeId, bool isOn) {
    return executeSQL(fmt::format(activeUpdate, isOn ? 1 : 0, timeId));
}

AlarmChange DatabaseFunctions::notStored() const {
    return {false, false,
            _("The user database {} cannot be changed: {}. Close other programs that use it, or make room on the disk, "
              "and try again.",
              userDBPath_, lastError_)};
}

}  // namespace quode
