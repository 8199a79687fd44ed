// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>

#include "common/GlobalFuncs.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"

namespace quode::test {

/// Starts the shared services with a test's folder, clock and calendar, and with real files.
inline void startServices(const std::filesystem::path& folder, std::shared_ptr<Clock> clock,
                          std::shared_ptr<EventStore> calendar) {
    Platform platform = FakePlatform().platform();
    platform.clock = std::move(clock);
    platform.files = posixFiles();
    platform.dataFolder = folder.string();
    platform.eventStore = std::move(calendar);
    GlobalFuncs::startUp(platform);
}

}  // namespace quode::test
