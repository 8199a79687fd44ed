// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/UserEventStore.h"

#include <utility>

#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"

namespace quode {
namespace {

std::unique_ptr<EventStore> storeOf(const std::filesystem::path& dataFolder, CalendarLayout layout) {
    if (layout == CalendarLayout::vdir) return std::make_unique<VdirEventStore>(dataFolder / "calendar");
    return std::make_unique<IcalEventStore>(dataFolder);
}

}  // namespace

UserEventStore::UserEventStore(std::filesystem::path dataFolder, CalendarLayout layout)
    : dataFolder_(std::move(dataFolder)), layout_(layout), store_(storeOf(dataFolder_, layout)) {}

StoreStatus UserEventStore::changeLayout(CalendarLayout layout) {
    if (layout == layout_) return {};
    const std::unique_ptr<EventStore> former = std::exchange(store_, storeOf(dataFolder_, layout));
    layout_ = layout;
    const EventList list = former->ownEvents();
    StoreStatus status = list.status;
    for (const CalendarEvent& event : list.events) {
        const StoreStatus removed = former->removeEvent(event.identifier);
        if (!removed.ok) status = removed;
    }
    return status;
}

}  // namespace quode
