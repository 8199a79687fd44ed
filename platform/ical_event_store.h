// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The device's calendar as one iCalendar file, which desktop calendars can show.
#pragma once

#include "platform/EventStore.h"
#include "platform/calendar_file.h"

namespace quode {

/// Keeps the events in the file "Quode.ics" of the data folder. Whatever else the file holds (other events, tasks,
/// time zones, properties unknown here) keeps every byte. Each save replaces the file as a whole, see `replaceFile`.
/// A file that is no calendar is kept aside as "Quode.ics.damaged-N" by the next save; one that cannot be read is
/// left alone, and the operation fails with a message.
class IcalEventStore : public EventStore {
  public:
    explicit IcalEventStore(std::filesystem::path dataFolder, StoreSurroundings surroundings = {});

    FoundEvent findEvent(std::string_view identifier) override;
    SavedEvent saveEvent(const CalendarEvent& event) override;
    StoreStatus removeEvent(std::string_view identifier) override;
    CalendarInfo defaultCalendar() const override;
    EventList ownEvents() override;
    std::string newIdentifier() override;
    void setPatience(std::chrono::milliseconds patience) override { surroundings_.lockPatience = patience; }
    void removeLeftOvers() override;

  private:
    StoreStatus removeLocked(std::string_view identifier);
    std::filesystem::path lockFile() const;

    std::filesystem::path folder_;
    std::filesystem::path file_;
    StoreSurroundings surroundings_;
};

}  // namespace quode
