// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/Clock.h"
#include "platform/Device.h"
#include "platform/EventStore.h"
#include "platform/Files.h"
#include "platform/Locale.h"

namespace quode {

/// The services of the device that a program runs on. Each program's main chooses the implementations and passes them to
/// `GlobalFuncs::startUp`. Only the last two pointers may be null.
struct Platform {
    std::shared_ptr<Clock> clock;
    std::shared_ptr<Locale> locale;
    std::shared_ptr<Device> device;
    std::shared_ptr<Files> files;
    std::string dataFolder;       ///< for the user's files; see `dataFolderFrom` in "platform/folders.h"
    std::string zoneFolder = {};  ///< the machine's zone data; empty: not used
    /// The clock of the alarm times in the user database, the same for every program that writes there; null: `clock`.
    std::shared_ptr<Clock> alarmClock = nullptr;
    std::shared_ptr<EventStore> eventStore = nullptr;  ///< the alarms' calendar; null in programs that write none
};

}  // namespace quode
