// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The device's calendar as a folder of one file per event, as programs that exchange calendars with a server want it.
#pragma once

#include "platform/EventStore.h"
#include "platform/calendar_file.h"

namespace quode {

/// Keeps each event in a file "<identifier>.ics" of the folder, a "vdir", which vdirsyncer, khal and others read and
/// write. Events that another program put there under other names are found and replaced in their own files.
/// Each file is saved, kept aside and left alone as `IcalEventStore` does with its one.
class VdirEventStore : public EventStore {
  public:
    explicit VdirEventStore(std::filesystem::path folder, StoreSurroundings surroundings = {});

    FoundEvent findEvent(std::string_view identifier) override;
    SavedEvent saveEvent(const CalendarEvent& event) override;
    StoreStatus removeEvent(std::string_view identifier) override;
    CalendarInfo defaultCalendar() const override;
    EventList ownEvents() override;
    std::string newIdentifier() override;
    void setPatience(std::chrono::milliseconds patience) override { surroundings_.lockPatience = patience; }
    void removeLeftOvers() override;

  private:
    /// The file that holds the event. Without one, `file` is where a new event of this identifier belongs.
    struct Place {
        std::filesystem::path file;
        LoadedCalendar loaded;
        bool holdsEvent = false;
    };
    Place placeOf(std::string_view identifier) const;
    FileOutcome removeFrom(const Place& place, std::string_view identifier);
    std::filesystem::path lockFile() const;

    std::filesystem::path folder_;
    StoreSurroundings surroundings_;
};

}  // namespace quode
