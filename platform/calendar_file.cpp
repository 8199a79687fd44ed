// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/calendar_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <system_error>
#include <tuple>
#include <utility>

#include "platform/event_identifier.h"
#include "platform/ical_component.h"
#include "texts/translation.h"

namespace quode {

namespace fs = std::filesystem;

namespace {

// Thousands of times the size that alarms need; a larger file is not a calendar.
constexpr std::size_t kLargestFile = std::size_t{16} << 20U;

FileOutcome startAgain(const fs::path& file, const LoadedCalendar& loaded, std::string_view content, FileCalls& calls) {
    const fs::path aside = freeDamagedName(file);
    const FileOutcome outcome = replaceFile(calls, file, content, aside, loaded.stamp);
    if (!outcome.ok) return outcome;
    StoreStatus status = asStatus(outcome);
    addMessage(status, _("{} cannot be read as a calendar: {}. It is kept as {}, and a new calendar is started. Copy "
                         "other events back from there.",
                         file.string(), loaded.damage, aside.filename().string()));
    return {true, status.message};
}

std::string unreadableEvent(std::string_view identifier, const fs::path& file, std::string_view problem) {
    return _("The event {} in {} cannot be read: {}. Switch its alarm on again to repair it.", identifier,
             file.string(), problem);
}

}  // namespace

LoadedCalendar loadCalendar(const fs::path& file) {
    FileContent content = readWholeFile(file, kLargestFile);
    if (!content.outcome.ok || !content.bytes) return {asStatus(content.outcome), std::nullopt, {}};
    if (auto problem = problemOfCalendars()) return {{false, std::move(*problem)}, std::nullopt, {}};
    ScannedCalendar scanned = scanCalendar(std::move(*content.bytes));
    if (scanned.calendar) return {{}, std::move(scanned.calendar), {}, content.stamp};
    StoreStatus status{false, _("{} cannot be read as a calendar: {}. Repair it, or switch an alarm on: the file is "
                                "then kept aside and a new one started.",
                                file.string(), scanned.problem)};
    return {std::move(status), std::nullopt, std::move(scanned.problem), content.stamp};
}

FileOutcome saveEventInFile(const fs::path& file, const LoadedCalendar& loaded, const CalendarEvent& event,
                            const StoreSurroundings& surroundings) {
    const bool damaged = !loaded.damage.empty();
    if (!loaded.status.ok && !damaged) return {false, loaded.status.message};

    const CalendarText calendar = loaded.calendar ? *loaded.calendar : *scanCalendar(emptyCalendar()).calendar;
    const auto parts = eventParts(calendar, event.identifier);
    const auto described = std::ranges::find(parts, false, &CalendarComponent::isRecurrenceOverride);
    const std::string_view oldText = described == parts.end() ? std::string_view{} : textOf(calendar, *described);
    CalendarEvent marked = event;
    marked.mark = surroundings.mark;
    const std::string content =
        withEventText(calendar, event.identifier, eventText(marked, oldText, surroundings.now()));
    if (damaged) return startAgain(file, loaded, content, *surroundings.files);
    return replaceFile(*surroundings.files, file, content, std::nullopt, loaded.stamp);
}

FoundEvent eventInCalendar(const CalendarText& calendar, std::string_view identifier, const fs::path& file) {
    const auto parts = eventParts(calendar, identifier);
    if (parts.empty()) return {};
    const auto described = std::ranges::find(parts, false, &CalendarComponent::isRecurrenceOverride);
    ReadEvent read = readEvent(calendar, described == parts.end() ? parts.front() : *described);
    if (!read.event) return {{false, unreadableEvent(identifier, file, read.problem)}, std::nullopt};
    return {{}, std::move(read.event)};
}

void addOwnEvents(const CalendarText& calendar, const fs::path& file, EventList& list) {
    for (const CalendarComponent& component : calendar.components) {
        const bool wanted = component.name == "VEVENT" && !component.isRecurrenceOverride;
        if (!wanted || !isOwnIdentifier(component.uid)) continue;
        ReadEvent read = readEvent(calendar, component);
        if (read.event) {
            list.events.push_back(std::move(*read.event));
        } else {
            addMessage(list.status, unreadableEvent(component.uid, file, read.problem));
        }
    }
}

void sortEvents(EventList& list) {
    std::ranges::sort(list.events, {},
                      [](const CalendarEvent& event) { return std::tie(event.start, event.identifier); });
}

void addMessage(StoreStatus& status, std::string_view message) {
    if (!status.message.empty() && !message.empty()) status.message += ' ';
    status.message += message;
}

void removeTemporaryFiles(FileCalls& calls, const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (isTemporaryFile(entry->path())) calls.unlink(entry->path());
    }
}

StoreStatus asStatus(const FileOutcome& outcome) {
    return {outcome.ok, outcome.message};
}

}  // namespace quode
