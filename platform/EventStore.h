// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The device's calendar, as far as prayer alarms need it: events that ring at their start.
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
    std::string identifier;  ///< the event's UID; empty for an event that has not been saved yet
    std::string title;
    std::string location;
    std::chrono::sys_seconds start{};
    std::chrono::sys_seconds end{};  ///< may lie before the start: it is kept, see `EventStore::saveEvent`
    /// When the event rings, relative to its start (negative: before); no value: it does not ring.
    std::optional<std::chrono::seconds> alarmOffset = std::chrono::seconds{0};
    bool allDay = false;
    std::string mark = {};  ///< of the installation that saved it, see `StoreSurroundings`; empty: not known

    bool operator==(const CalendarEvent&) const = default;
};

/// How an operation went. `message` says after a failure what went wrong and what to do about it; after a success it
/// is empty, or names something the user should know (a damaged file that was kept aside, for example).
struct StoreStatus {
    bool ok = true;
    std::string message;
};

struct FoundEvent {
    StoreStatus status;
    std::optional<CalendarEvent> event;  ///< no value: the calendar holds no such event, or it could not be read
};

struct SavedEvent {
    StoreStatus status;
    std::string identifier;  ///< under which the event is found from now on; empty after a failure
};

struct EventList {
    StoreStatus status;
    std::vector<CalendarEvent> events;  ///< ordered by start
};

struct CalendarInfo {
    std::string name;
    std::filesystem::path location;  ///< the file or folder that holds the events
};

/// A calendar that Quode writes its alarms to. Nothing is thrown: every operation reports through its result.
/// Two programs may use the same calendar at once; an object is used by one thread at a time.
class EventStore {
  public:
    virtual ~EventStore() = default;

    /// The event with this identifier, whoever made it. That there is none is a success without an event.
    /// An identifier that contains a quote or a control character is refused.
    virtual FoundEvent findEvent(std::string_view identifier) = 0;

    /// An identifier for an event that is about to be made, so that it can be noted before; empty where the calendar
    /// chooses it when the event is saved.
    virtual std::string newIdentifier() { return {}; }

    /// How long to wait from now on for another program that writes.
    virtual void setPatience(std::chrono::milliseconds) {}

    /// Replaces the event that has `event.identifier`, or creates one when there is none. An empty identifier, or an
    /// unknown one that this system did not make, is replaced by a new one. What other programs added to the event
    /// is kept, but for its alarms and its recurrence: the event rings once. An end that is not after the start is
    /// written as one minute after it, for no calendar accepts it otherwise; `findEvent` gives back the one that was
    /// saved. `event.mark` does not matter: it becomes that of this installation. Blanks around title and location are
    /// dropped. All-day events and times outside the years 1 to 2500 are refused. After a failure the calendar is as it
    /// was.
    virtual SavedEvent saveEvent(const CalendarEvent& event) = 0;

    /// Removes the event with this identifier. That there is none is a success.
    virtual StoreStatus removeEvent(std::string_view identifier) = 0;

    /// Removes what saves that were cut off have left behind.
    virtual void removeLeftOvers() {}

    /// The calendar that new events go to.
    virtual CalendarInfo defaultCalendar() const = 0;

    /// The events that this system made, on this device or, in a folder that is exchanged with others, on another one:
    /// their marks differ. Those of other programs in the same calendar are left out.
    virtual EventList ownEvents() = 0;
};

}  // namespace quode
