// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Runs the calendar stores from the command line, for tests with other programs.
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "platform/evolution_source.h"
#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"

namespace {

using namespace quode;

int report(bool ok, const std::string& message) {
    if (!message.empty()) std::cerr << message << '\n';
    return ok ? 0 : 1;
}

std::chrono::sys_seconds timeFrom(const std::string& text) {
    return std::chrono::sys_seconds(std::chrono::seconds(std::stoll(text)));
}

std::unique_ptr<EventStore> storeOf(const std::string& layout, const std::string& folder) {
    if (layout == "vdir") return std::make_unique<VdirEventStore>(folder);
    return std::make_unique<IcalEventStore>(folder);
}

int save(EventStore& store, const std::vector<std::string>& arguments) {
    CalendarEvent event;
    event.title = arguments.at(3);
    event.location = "Quode";
    event.start = timeFrom(arguments.at(4));
    event.end = timeFrom(arguments.at(5));
    if (arguments.size() > 6) event.identifier = arguments.at(6);
    const SavedEvent saved = store.saveEvent(event);
    std::cout << saved.identifier << '\n';
    return report(saved.status.ok, saved.status.message);
}

int list(EventStore& store) {
    const EventList found = store.ownEvents();
    for (const CalendarEvent& event : found.events) {
        std::cout << event.identifier << '\t' << event.start.time_since_epoch().count() << '\t'
                  << event.end.time_since_epoch().count() << '\t' << event.title << '\n';
    }
    return report(found.status.ok, found.status.message);
}

int run(const std::vector<std::string>& arguments) {
    const std::string& command = arguments.at(0);
    if (command == "connect" || command == "disconnect") {
        EvolutionSource source(arguments.at(1));
        const FileOutcome outcome =
            command == "disconnect" ? source.disconnect() : source.connect(arguments.at(2), arguments.at(3) == "rings");
        return report(outcome.ok, outcome.message);
    }
    const auto store = storeOf(arguments.at(1), arguments.at(2));
    if (command == "save") return save(*store, arguments);
    if (command == "list") return list(*store);
    const StoreStatus status = store->removeEvent(arguments.at(3));
    return report(status.ok, status.message);
}

}  // namespace

int main(int count, char** words) {
    try {
        return run({words + 1, words + count});
    } catch (const std::exception&) {
        std::cerr << "usage: calendar_tool save file|vdir FOLDER TITLE START END [ID] | list file|vdir FOLDER |\n"
                     "       remove file|vdir FOLDER ID | connect CONFIG FILE rings|silent | disconnect CONFIG\n";
        return 2;
    }
}
