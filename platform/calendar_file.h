// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A calendar file on disk: reading it, changing one event, saving it.
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

/// The services that a store uses.
struct StoreSurroundings {
    /// The time of last change that is written into an event.
    std::function<std::chrono::sys_seconds()> now = [] {
        return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    };
    std::shared_ptr<FileCalls> files = systemFileCalls();
    std::chrono::milliseconds lockPatience{5000};  ///< the longest time to wait for another program that writes
    /// Identifies the events of this installation, also in a folder that is shared with other devices. Empty: events get no
    /// mark.
    std::string mark = {};
};

/// The content of a calendar file. No calendar after a success: the file does not exist, or `damage` says why its text is
/// not a calendar.
struct LoadedCalendar {
    StoreStatus status;
    std::optional<CalendarText> calendar;
    std::string damage;
    FileStamp stamp = {};
};

/// The number of attempts to save a change when a program without the lock changes the file at the same time.
inline constexpr int attemptsToSave = 10;

/// Reads a calendar file.
LoadedCalendar loadCalendar(const std::filesystem::path& file);

/// Saves an event in a file. A file whose text is not a calendar is kept under the name that `freeDamagedName` gives, and a
/// new one is started; the message says so.
/// @param loaded  the content of the file; the caller has held the lock since it was loaded
/// @param event   with its identifier
FileOutcome saveEventInFile(const std::filesystem::path& file, const LoadedCalendar& loaded, const CalendarEvent& event,
                            const StoreSurroundings& surroundings);

/// The event with an identifier in a calendar that was loaded from `file`.
FoundEvent eventInCalendar(const CalendarText& calendar, std::string_view identifier,
                           const std::filesystem::path& file);

/// Adds the calendar's events that Quode made; the status names those that cannot be read.
void addOwnEvents(const CalendarText& calendar, const std::filesystem::path& file, EventList& list);

/// Sorts the events by start.
void sortEvents(EventList& list);

/// Appends a message to the status.
void addMessage(StoreStatus& status, std::string_view message);

/// Removes the temporary files of interrupted saves in a folder. The caller holds the lock.
void removeTemporaryFiles(FileCalls& calls, const std::filesystem::path& folder);

/// The outcome of a file operation as that of a store.
StoreStatus asStatus(const FileOutcome& outcome);

}  // namespace quode
