// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>

#include "companion/UserSettings.h"
#include "platform/EventStore.h"

namespace quode {

/// The calendar in the layout that the user has chosen: the file "Quode.ics", or the folder "calendar", both in the
/// data folder. The layout may be changed while the object is in use.
class UserEventStore : public EventStore {
  public:
    UserEventStore(std::filesystem::path dataFolder, CalendarLayout layout);

    CalendarLayout layout() const { return layout_; }

    /// Chooses another layout. The events that this system made are taken out of the former one, so that no program
    /// rings for them there; they have to be written again.
    StoreStatus changeLayout(CalendarLayout layout);

    FoundEvent findEvent(std::string_view identifier) override { return store_->findEvent(identifier); }
    SavedEvent saveEvent(const CalendarEvent& event) override { return store_->saveEvent(event); }
    StoreStatus removeEvent(std::string_view identifier) override { return store_->removeEvent(identifier); }
    CalendarInfo defaultCalendar() const override { return store_->defaultCalendar(); }
    EventList ownEvents() override { return store_->ownEvents(); }

  private:
    std::filesystem::path dataFolder_;
    CalendarLayout layout_;
    std::unique_ptr<EventStore> store_;
};

}  // namespace quode
