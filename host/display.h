// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What is known of the display before and after the application was made.
#pragma once

#include "platform/Environment.h"

namespace quode::host {

/// The displays that answer. To be asked before the application object is made: Qt ends the program when it finds none.
struct Displays {
    bool x = false;
    bool wayland = false;  ///< and Qt can use it
};
Displays answeringDisplays(const Environment& environment);

/// Whether windows may be translucent, for something composes them with what lies behind. To be asked once the
/// application object was made.
bool isComposited();

}  // namespace quode::host
