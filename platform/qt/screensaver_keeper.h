// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/ScreenKeeper.h"

namespace quode {

/// Keeps the screen awake with the session's screen-saver service, org.freedesktop.ScreenSaver. The request ends with
/// `letGo`, with the object, and, because the service watches its clients, with the process.
/// @param application,reason  shown by the desktop as the reason why the screen stays on
std::unique_ptr<ScreenKeeper> screenSaverKeeper(std::string application, std::string reason);

}  // namespace quode
