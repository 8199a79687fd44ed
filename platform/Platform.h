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

/// Everything that the program asks of the device it runs on. Each program's main chooses the implementations and gives
/// the whole to GlobalFuncs::startUp. No pointer but
/// the last two is null.
struct Platform {
    std::shared_ptr<Clock> clock;
    std::shared_ptr<Locale> locale;
    std::shared_ptr<Device> device;
    std::shared_ptr<Files> files;
    std::string dataFolder;       ///< where the user's files are kept; see dataFolderFrom in "platform/folders.h"
    std::string zoneFolder = {};  ///< where the machine keeps its zone data; empty: they are not looked at
    /// The clock by which the times of alarms are kept in the user database, the same for every program that writes
    /// there; null: `clock`.
    std::shared_ptr<Clock> alarmClock = nullptr;
    std::shared_ptr<EventStore> eventStore = nullptr;  ///< the calendar of the alarms; null where no alarm is written
};

}  // namespace quode
