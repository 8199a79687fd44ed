// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/vdir_event_store.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/event_identifier.h"
#include "platform/ical_component.h"
#include "texts/translation.h"

namespace quode {

namespace fs = std::filesystem;

namespace {

bool isEventFile(const fs::path& file) {
    return file.extension() == ".ics" && !file.filename().string().starts_with('.');
}

struct FolderListing {
    StoreStatus status;
    std::vector<fs::path> files;
};

FolderListing eventFiles(const fs::path& folder) {
    FolderListing listing;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (isEventFile(entry->path())) listing.files.push_back(entry->path());
    }
    if (error && error != std::errc::no_such_file_or_directory) {
        listing.status = {
            false, error == std::errc::not_a_directory
                       ? _("{} is not a folder. Move it away.", folder.string())
                       : _("Cannot read the folder {}: {}. Check its permissions.", folder.string(), error.message())};
    }
    std::ranges::sort(listing.files);
    return listing;
}

/// A file name for a new event: not the identifier of another program, which may contain invalid characters.
std::string fileNameFor(std::string_view identifier) {
    return (isOwnIdentifier(identifier) ? std::string(identifier) : newEventIdentifier()) + ".ics";
}

bool holds(const LoadedCalendar& loaded, std::string_view identifier) {
    return loaded.calendar && !eventParts(*loaded.calendar, identifier).empty();
}

}  // namespace

VdirEventStore::VdirEventStore(fs::path folder, StoreSurroundings surroundings)
    : folder_(std::move(folder)), surroundings_(std::move(surroundings)) {}

VdirEventStore::Place VdirEventStore::placeOf(std::string_view identifier) const {
    Place expected{folder_ / fileNameFor(identifier), {}, false};
    expected.loaded = loadCalendar(expected.file);
    expected.holdsEvent = holds(expected.loaded, identifier);
    if (expected.holdsEvent || !expected.loaded.status.ok) return expected;

    const FolderListing listing = eventFiles(folder_);
    for (const fs::path& file : listing.files) {
        LoadedCalendar loaded = loadCalendar(file);
        if (holds(loaded, identifier)) return {file, std::move(loaded), true};
    }
    if (!listing.status.ok) expected.loaded.status = listing.status;
    return expected;
}

FoundEvent VdirEventStore::findEvent(std::string_view identifier) {
    if (auto problem = problemOfIdentifier(identifier)) return {{false, std::move(*problem)}, std::nullopt};
    const Place place = placeOf(identifier);
    if (!place.holdsEvent) return {place.loaded.status, std::nullopt};
    return eventInCalendar(*place.loaded.calendar, identifier, place.file);
}

SavedEvent VdirEventStore::saveEvent(const CalendarEvent& event) {
    if (auto problem = problemOfEvent(event)) return {{false, std::move(*problem)}, {}};
    if (const FileOutcome folder = makeFolder(folder_); !folder.ok) return {asStatus(folder), {}};
    const FileLock lock(lockFile(), surroundings_.lockPatience);
    if (!lock.outcome().ok) return {asStatus(lock.outcome()), {}};

    CalendarEvent saved = event;
    FileOutcome outcome;
    for (int attempt = 0; attempt < attemptsToSave; ++attempt) {
        Place place = placeOf(event.identifier);
        if (!place.holdsEvent && !isOwnIdentifier(event.identifier)) {
            saved.identifier = newEventIdentifier();
            place.file = folder_ / fileNameFor(saved.identifier);
            place.loaded = loadCalendar(place.file);
        }
        outcome = saveEventInFile(place.file, place.loaded, saved, surroundings_);
        if (!outcome.isOutdated) break;
    }
    return {asStatus(outcome), outcome.ok ? saved.identifier : std::string()};
}

StoreStatus VdirEventStore::removeEvent(std::string_view identifier) {
    if (auto problem = problemOfIdentifier(identifier)) return {false, std::move(*problem)};
    if (const Place place = placeOf(identifier); !place.holdsEvent) return place.loaded.status;
    const FileLock lock(lockFile(), surroundings_.lockPatience);
    if (!lock.outcome().ok) return asStatus(lock.outcome());

    FileOutcome outcome;
    for (int attempt = 0; attempt < attemptsToSave; ++attempt) {
        const Place place = placeOf(identifier);  // it may have changed while waiting for the lock
        if (!place.holdsEvent) return place.loaded.status;
        outcome = removeFrom(place, identifier);
        if (!outcome.isOutdated) break;
    }
    return asStatus(outcome);
}

FileOutcome VdirEventStore::removeFrom(const Place& place, std::string_view identifier) {
    const std::string rest = withEventText(*place.loaded.calendar, identifier, {});
    const auto left = scanCalendar(rest);
    const bool nothingLeft = left.calendar && std::ranges::all_of(left.calendar->components, [](const auto& component) {
                                 return component.name == "VTIMEZONE";
                             });
    if (nothingLeft) return removeFile(*surroundings_.files, place.file);
    return replaceFile(*surroundings_.files, place.file, rest, std::nullopt, place.loaded.stamp);
}

std::string VdirEventStore::newIdentifier() {
    return newEventIdentifier();
}

void VdirEventStore::removeLeftOvers() {
    std::error_code error;
    if (!fs::is_directory(folder_, error)) return;
    const FileLock lock(lockFile(), surroundings_.lockPatience);
    if (lock.outcome().ok) removeTemporaryFiles(*surroundings_.files, folder_);
}

CalendarInfo VdirEventStore::defaultCalendar() const {
    return {"Quode", folder_};
}

EventList VdirEventStore::ownEvents() {
    FolderListing listing = eventFiles(folder_);
    EventList list{std::move(listing.status), {}};
    for (const fs::path& file : listing.files) {
        const LoadedCalendar loaded = loadCalendar(file);
        addMessage(list.status, loaded.status.message);
        if (loaded.calendar) addOwnEvents(*loaded.calendar, file, list);
    }
    sortEvents(list);
    return list;
}

fs::path VdirEventStore::lockFile() const {
    return folder_ / ".quode.lock";
}

}  // namespace quode
