// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "companion/UserSettings.h"
#include "platform/EventStore.h"
#include "platform/calendar_file.h"

namespace quode {

/// The calendar in the layout that the user has chosen: the file "Quode.ics", or the folder "calendar", both in the
/// data folder. Its events carry the mark of this installation. The layout may be changed while the object is in use.
class UserEventStore : public EventStore {
  public:
    UserEventStore(std::filesystem::path dataFolder, CalendarLayout layout,
                   std::chrono::milliseconds patience = std::chrono::seconds(5));

    CalendarLayout layout() const { return layout_; }

    /// Works on another layout from now on. No event is moved: see `AlarmBook::changeLayout`.
    void setLayout(CalendarLayout layout);

    FoundEvent findEvent(std::string_view identifier) override { return store_->findEvent(identifier); }
    SavedEvent saveEvent(const CalendarEvent& event) override { return store_->saveEvent(event); }
    StoreStatus removeEvent(std::string_view identifier) override { return store_->removeEvent(identifier); }
    CalendarInfo defaultCalendar() const override { return store_->defaultCalendar(); }
    EventList ownEvents() override { return store_->ownEvents(); }
    std::string newIdentifier() override { return store_->newIdentifier(); }
    void setPatience(std::chrono::milliseconds patience) override;
    void removeLeftOvers() override { store_->removeLeftOvers(); }

  private:
    std::filesystem::path dataFolder_;
    CalendarLayout layout_;
    StoreSurroundings surroundings_;
    std::unique_ptr<EventStore> store_;
};

}  // namespace quode
