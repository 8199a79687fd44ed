// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The device's calendar with what prayer alarms need: events that ring at their start.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quode {

/// One calendar event. Times are UTC.
struct CalendarEvent {
    std::string identifier;  ///< the event's UID; empty for an event that is not saved yet
    std::string title;
    std::string location;
    std::chrono::sys_seconds start{};
    std::chrono::sys_seconds end{};  ///< may be before the start: it is kept, see `EventStore::saveEvent`
    /// When the event rings, relative to its start (negative: before); no value: it does not ring.
    std::optional<std::chrono::seconds> alarmOffset = std::chrono::seconds{0};
    bool allDay = false;
    std::string mark = {};  ///< identifies the installation that saved it, see `StoreSurroundings`; empty: unknown

    bool operator==(const CalendarEvent&) const = default;
};

/// The outcome of an operation. `message` says after a failure what failed and what to do; after a success it is empty or
/// contains a notice for the user, for example about a damaged file that was kept under another name.
struct StoreStatus {
    bool ok = true;
    std::string message;
};

/// The result of `EventStore::findEvent`.
struct FoundEvent {
    StoreStatus status;
    std::optional<CalendarEvent> event;  ///< no value: the calendar has no such event, or could not be read
};

/// The result of `EventStore::saveEvent`.
struct SavedEvent {
    StoreStatus status;
    std::string identifier;  ///< the event's identifier from now on; empty after a failure
};

/// The result of `EventStore::ownEvents`.
struct EventList {
    StoreStatus status;
    std::vector<CalendarEvent> events;  ///< ordered by start
};

/// Name and location of a calendar.
struct CalendarInfo {
    std::string name;
    std::filesystem::path location;  ///< the file or folder with the events
};

/// A calendar to which Quode writes its alarms. Nothing throws: every operation reports in its result. Two programs may use
/// the same calendar at once; use an object from one thread at a time.
class EventStore {
  public:
    virtual ~EventStore() = default;

    /// The event with an identifier, of any program. A missing event is a success without an event. An identifier that
    /// contains a quote or a control character is rejected.
    virtual FoundEvent findEvent(std::string_view identifier) = 0;

    /// An identifier for a new event, so that the caller can record it before saving; empty where the calendar chooses the
    /// identifier when the event is saved.
    virtual std::string newIdentifier() { return {}; }

    /// Sets the longest time to wait for another program that writes.
    virtual void setPatience(std::chrono::milliseconds) {}

    /// Replaces the event that has `event.identifier`, or creates one. An empty identifier, or an unknown one that Quode
    /// did not make, is replaced by a new one. Data that other programs added to the event are kept, except its alarms and
    /// its recurrence: the event rings once. An end that is not after the start is written as one minute after it, because
    /// calendars accept nothing else; `findEvent` returns the end that was saved. `event.mark` is ignored: it becomes that
    /// of this installation. Blanks around title and location are removed. All-day events and times outside the years 1 to
    /// 2500 are rejected. After a failure the calendar is unchanged.
    virtual SavedEvent saveEvent(const CalendarEvent& event) = 0;

    /// Removes the event with an identifier. A missing event is a success.
    virtual StoreStatus removeEvent(std::string_view identifier) = 0;

    /// Removes temporary files of interrupted saves.
    virtual void removeLeftOvers() {}

    /// The calendar for new events.
    virtual CalendarInfo defaultCalendar() const = 0;

    /// The events that Quode made, on this device or, in a shared folder, on others, with other marks. Events of other
    /// programs in the same calendar are not included.
    virtual EventList ownEvents() = 0;
};

}  // namespace quode
