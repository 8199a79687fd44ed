// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A calendar file on the disk: read, changed by one event, saved again.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/EventStore.h"
#include "platform/atomic_file.h"
#include "platform/file_calls.h"
#include "platform/ical_text.h"

namespace quode {

/// What a store needs of the device beside its files.
struct StoreSurroundings {
    /// The time that is noted in an event as the time of its last change.
    std::function<std::chrono::sys_seconds()> now = [] {
        return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    };
    std::shared_ptr<FileCalls> files = systemFileCalls();
    std::chrono::milliseconds lockPatience{5000};  ///< how long to wait for another program that writes
    /// What this installation's events are known by, also after they went through a folder that is exchanged with other
    /// devices. Empty: they carry no mark.
    std::string mark = {};
};

/// What a file holds. Without a calendar after a success there is no file; `damage` says why its text is no calendar.
struct LoadedCalendar {
    StoreStatus status;
    std::optional<CalendarText> calendar;
    std::string damage;
    FileStamp stamp = {};
};

/// How often a change is tried again that met one of a program which does not know the lock.
inline constexpr int attemptsToSave = 10;

LoadedCalendar loadCalendar(const std::filesystem::path& file);

/// Puts the event, which has its identifier, into the file; `loaded` is what the file holds, and the caller has the
/// lock since it was loaded. A file whose text is no calendar is kept aside under the name `freeDamagedName` gives, and
/// a new one begun; the status says so.
FileOutcome saveEventInFile(const std::filesystem::path& file, const LoadedCalendar& loaded, const CalendarEvent& event,
                            const StoreSurroundings& surroundings);

/// The event of this identifier in the calendar that was loaded from `file`.
FoundEvent eventInCalendar(const CalendarText& calendar, std::string_view identifier,
                           const std::filesystem::path& file);

/// Adds the events of the calendar that this system made; those that cannot be read are named in the status.
void addOwnEvents(const CalendarText& calendar, const std::filesystem::path& file, EventList& list);

/// Orders the events by start.
void sortEvents(EventList& list);

/// Joins a further message to the status.
void addMessage(StoreStatus& status, std::string_view message);

/// Removes the temporary files that saves which were cut off have left in a folder. The caller has the lock.
void removeTemporaryFiles(FileCalls& calls, const std::filesystem::path& folder);

StoreStatus asStatus(const FileOutcome& outcome);

}  // namespace quode
