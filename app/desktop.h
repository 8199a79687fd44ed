// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the commands ask of the desktop: its notifications and its sound.
#pragma once

#include <chrono>
#include <string>

#include "companion/UserSettings.h"
#include "platform/SoundPlayer.h"
#include "platform/notification_check.h"

namespace quode::app {

/// A ring to try out what the user will see and hear.
struct TrialRing {
    std::string title;  ///< empty: only the sound
    std::string body;
    std::string stopLabel;
    Sound sound;
    std::chrono::seconds time{};  ///< how long, unless the user stops it
    RingManner manner = {};
};

struct TrialResult {
    bool isShown = false;      ///< a notification service showed it
    bool isStopped = false;    ///< by the user
    std::string soundProblem;  ///< why it was not heard; empty when it was played
};

/// The operations on the desktop. The libraries behind them take longer to load than the times to compute; they stand
/// in the module "lib/quode/quode-desktop.so", which is loaded at its first use.
struct Desktop {
    NotificationCheck (*checkNotifications)();
    TrialResult (*ring)(const TrialRing&);
};

/// The name under which the module gives its operations.
inline constexpr const char* desktopSymbol = "quodeDesktop";

/// The loaded module. Throws `Failure` (damagedData) when it is missing.
const Desktop& desktop();

}  // namespace quode::app
