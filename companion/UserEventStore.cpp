// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/UserEventStore.h"

#include <utility>

#include "companion/installation_mark.h"
#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"

namespace quode {
namespace {

std::unique_ptr<EventStore> storeOf(const std::filesystem::path& dataFolder, CalendarLayout layout,
                                    const StoreSurroundings& surroundings) {
    if (layout == CalendarLayout::vdir) return std::make_unique<VdirEventStore>(dataFolder / "calendar", surroundings);
    return std::make_unique<IcalEventStore>(dataFolder, surroundings);
}

}  // namespace

UserEventStore::UserEventStore(std::filesystem::path dataFolder, CalendarLayout layout,
                               std::chrono::milliseconds patience)
    : dataFolder_(std::move(dataFolder)), layout_(layout) {
    surroundings_.lockPatience = patience;
    surroundings_.mark = installationMark(dataFolder_);
    store_ = storeOf(dataFolder_, layout_, surroundings_);
}

void UserEventStore::setLayout(CalendarLayout layout) {
    if (layout == layout_) return;
    layout_ = layout;
    store_ = storeOf(dataFolder_, layout_, surroundings_);
}

void UserEventStore::setPatience(std::chrono::milliseconds patience) {
    surroundings_.lockPatience = patience;
    store_->setPatience(patience);
}

}  // namespace quode
