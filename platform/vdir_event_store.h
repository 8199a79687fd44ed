// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The device's calendar as a folder with one file per event, for programs that synchronise calendars with a server.
#pragma once

#include "platform/EventStore.h"
#include "platform/calendar_file.h"

namespace quode {

/// Stores each event in a file "<identifier>.ics" of the folder, a "vdir", which vdirsyncer, khal and others read and write.
/// Events of other programs under other file names are found and replaced in their files. Damaged and unreadable files are
/// handled as by `IcalEventStore`.
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
    /// The file with the event. Without an event, `file` is the path for a new one.
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
