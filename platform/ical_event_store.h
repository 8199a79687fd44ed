// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The device's calendar as one iCalendar file, which desktop calendars can show.
#pragma once

#include "platform/EventStore.h"
#include "platform/calendar_file.h"

namespace quode {

/// Stores the events in the file "Quode.ics" in the data folder. All other content of the file (other events, tasks, time
/// zones, unknown properties) stays the same to the byte. Each save replaces the file as a whole, see `replaceFile`. The next
/// save keeps a file that is not a calendar as "Quode.ics.damaged-N"; with a file that cannot be read, the operation fails
/// with a message and leaves the file as it is.
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
