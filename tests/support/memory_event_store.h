// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "platform/EventStore.h"

namespace quode::test {

/// A calendar in memory, which can be made to fail.
class MemoryEventStore : public EventStore {
  public:
    std::map<std::string, CalendarEvent> events;
    bool failing = false;                    ///< nothing can be read or written
    std::string nextIdentifier = "event-1";  ///< the identifier of the next new event
    std::function<void()> beforeSave;        ///< called once, by the next save
    int saves = 0;

    FoundEvent findEvent(std::string_view identifier) override {
        if (failing) return {failure(), {}};
        const auto event = events.find(std::string(identifier));
        return {{}, event == events.end() ? std::nullopt : std::optional(event->second)};
    }

    SavedEvent saveEvent(const CalendarEvent& event) override {
        if (const auto action = std::exchange(beforeSave, nullptr)) action();
        if (failing) return {failure(), {}};
        ++saves;
        CalendarEvent kept = event;
        if (kept.identifier.empty()) {
            kept.identifier = nextIdentifier;
            nextIdentifier = "event-" + std::to_string(events.size() + 2);
        }
        events[kept.identifier] = kept;
        return {{}, kept.identifier};
    }

    StoreStatus removeEvent(std::string_view identifier) override {
        if (failing) return failure();
        events.erase(std::string(identifier));
        return {};
    }

    CalendarInfo defaultCalendar() const override { return {"Memory", {}}; }

    EventList ownEvents() override {
        EventList list;
        for (const auto& [identifier, event] : events) list.events.push_back(event);
        std::ranges::sort(list.events, {}, &CalendarEvent::start);
        return list;
    }

  private:
    static StoreStatus failure() { return {false, "The calendar refuses."}; }
};

}  // namespace quode::test
