// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/ical_event_store.h"

#include <utility>

#include "platform/event_identifier.h"
#include "platform/ical_component.h"

namespace quode {

IcalEventStore::IcalEventStore(std::filesystem::path dataFolder, StoreSurroundings surroundings)
    : folder_(std::move(dataFolder)), file_(folder_ / "Quode.ics"), surroundings_(std::move(surroundings)) {}

FoundEvent IcalEventStore::findEvent(std::string_view identifier) {
    if (auto problem = problemOfIdentifier(identifier)) return {{false, std::move(*problem)}, std::nullopt};
    const LoadedCalendar loaded = loadCalendar(file_);
    if (!loaded.calendar) return {loaded.status, std::nullopt};
    return eventInCalendar(*loaded.calendar, identifier, file_);
}

SavedEvent IcalEventStore::saveEvent(const CalendarEvent& event) {
    if (auto problem = problemOfEvent(event)) return {{false, std::move(*problem)}, {}};
    if (const FileOutcome folder = makeFolder(folder_); !folder.ok) return {asStatus(folder), {}};
    const FileLock lock(lockFile(), surroundings_.lockPatience);
    if (!lock.outcome().ok) return {asStatus(lock.outcome()), {}};

    CalendarEvent saved = event;
    FileOutcome outcome;
    for (int attempt = 0; attempt < attemptsToSave; ++attempt) {
        const LoadedCalendar loaded = loadCalendar(file_);
        const bool known = loaded.calendar && !eventParts(*loaded.calendar, event.identifier).empty();
        if (!known && !isOwnIdentifier(event.identifier)) saved.identifier = newEventIdentifier();
        outcome = saveEventInFile(file_, loaded, saved, surroundings_);
        if (!outcome.isOutdated) break;
    }
    return {asStatus(outcome), outcome.ok ? saved.identifier : std::string()};
}

StoreStatus IcalEventStore::removeEvent(std::string_view identifier) {
    if (auto problem = problemOfIdentifier(identifier)) return {false, std::move(*problem)};
    const LoadedCalendar loaded = loadCalendar(file_);
    if (!loaded.calendar || eventParts(*loaded.calendar, identifier).empty()) return loaded.status;
    const FileLock lock(lockFile(), surroundings_.lockPatience);
    return lock.outcome().ok ? removeLocked(identifier) : asStatus(lock.outcome());
}

StoreStatus IcalEventStore::removeLocked(std::string_view identifier) {
    FileOutcome outcome;
    for (int attempt = 0; attempt < attemptsToSave; ++attempt) {
        const LoadedCalendar loaded = loadCalendar(file_);  // it may have changed while waiting for the lock
        if (!loaded.calendar) return loaded.status;
        const std::string rest = withEventText(*loaded.calendar, identifier, {});
        outcome = replaceFile(*surroundings_.files, file_, rest, std::nullopt, loaded.stamp);
        if (!outcome.isOutdated) break;
    }
    return asStatus(outcome);
}

std::string IcalEventStore::newIdentifier() {
    return newEventIdentifier();
}

void IcalEventStore::removeLeftOvers() {
    const FileLock lock(lockFile(), surroundings_.lockPatience);
    if (lock.outcome().ok) removeTemporaryFiles(*surroundings_.files, folder_);
}

CalendarInfo IcalEventStore::defaultCalendar() const {
    return {"Quode", file_};
}

EventList IcalEventStore::ownEvents() {
    const LoadedCalendar loaded = loadCalendar(file_);
    EventList list{loaded.status, {}};
    if (loaded.calendar) addOwnEvents(*loaded.calendar, file_, list);
    sortEvents(list);
    return list;
}

std::filesystem::path IcalEventStore::lockFile() const {
    return folder_ / ".Quode.ics.lock";
}

}  // namespace quode
