// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Alarms and their calendar events, changed together: the one place where that is done.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <vector>

#include "alarms/DatabaseFunctions.h"
#include "companion/UserDatabase.h"
#include "companion/UserEventStore.h"
#include "platform/EventStore.h"

namespace quode {

class AlarmJournal;

/// Switches alarms, and keeps the calendar's event of each at its next ring. Command line, service and panel use it; a
/// widget, which uses only `DatabaseFunctions`, reaches the same operations through its two.
///
/// Every change is recorded before it begins (`AlarmJournal`): a program that is cut off leaves nothing that the
/// next one would not finish. A change counts as done when it was read back. Throws `UserDatabaseError` where the user
/// database cannot be read or changed; a calendar that fails is reported, and keeps no alarm from being switched.
///
/// The shared services must have been started: their clock decides what the next ring is.
class AlarmBook {
  public:
    /// All must outlive the object.
    AlarmBook(std::filesystem::path dataFolder, UserDatabase& database, EventStore& calendar,
              std::chrono::milliseconds patience = std::chrono::seconds(10));

    AlarmChange switchOn(int code);
    AlarmChange switchOff(int code);

    /// Brings the events of all alarms to their next rings. Nothing is written where that is so already, and no alarm
    /// is switched: one that the user switches off in between stays off. Alarms for which `leave` is true are skipped.
    /// Events of this installation that no alarm has are removed.
    AlarmChange renew(const std::function<bool(const UserAlarm&)>& leave = {});

    /// Makes a change of the user database that events follow (cities, home, offsets), and renews them. When `change`
    /// throws, nothing was changed.
    AlarmChange change(const std::function<void()>& change);

    /// The same for a change after which the calendar has another layout.
    AlarmChange changeLayout(UserEventStore& calendar, CalendarLayout layout, const std::function<void()>& change);

    /// Finishes what an earlier program has left half done, and removes its temporary files.
    AlarmChange finishPending();

    /// The events that this installation made and no alarm has. Those of other devices are none of them.
    std::vector<CalendarEvent> eventsWithoutAlarm();

    /// Removes them.
    /// @return what failed; else nothing
    AlarmChange removeEventsWithoutAlarm();

  private:
    using Operation = std::function<AlarmChange(AlarmJournal&)>;

    AlarmChange withJournal(const Operation& operation);
    AlarmChange changeJournaled(const std::function<void()>& change, const Operation& follow);
    AlarmChange switchAlarm(int code, bool isOn, AlarmJournal& journal);
    AlarmChange readBack(int code, bool isOn, const std::vector<AlarmOccurrence>& next);
    bool isInPlace(const UserAlarm& alarm, const std::vector<AlarmOccurrence>& next);
    AlarmChange renewOne(int code, const std::vector<AlarmOccurrence>& next, AlarmJournal& journal);
    AlarmChange renewAll(AlarmJournal& journal);
    AlarmChange finishPending(AlarmJournal& journal);
    std::vector<CalendarEvent> withoutAlarmIn(EventStore& calendar, AlarmChange& result);
    AlarmChange removeWithoutAlarm();
    UserEventStore otherLayout() const;

    std::filesystem::path dataFolder_;
    UserDatabase* database_;
    EventStore* calendar_;
    std::chrono::milliseconds patience_;
    DatabaseFunctions functions_;
};

}  // namespace quode
