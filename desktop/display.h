// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What is known of the display before and after the application was made.
#pragma once

#include <string>

#include "platform/Environment.h"

namespace quode {

/// The displays that answer. To be asked before the application object is made: Qt ends the program when it finds none.
struct Displays {
    bool x = false;
    bool wayland = false;  ///< and Qt can use it
};
Displays answeringDisplays(const Environment& environment);

/// Chooses the display for Qt where there is one, before the application is made; the choice is Qt's where there are two.
/// Throws `app::Failure` (notFound) when there is none.
/// @param remedy  what the user can do without one
void chooseDisplay(const Environment& environment, const std::string& remedy);

/// Enlarges everything that Qt draws. To be called before the application is made.
void enlarge(int percent);

/// Whether a program owns a selection of the X screen. To be asked once the application object was made.
/// @param selection  its name without the number of the screen, such as "_NET_WM_CM_S"
bool isOwnedOnScreen(const std::string& selection);

/// Whether windows may be translucent, for something composes them with what lies behind. To be asked once the
/// application object was made.
bool isComposited();

}  // namespace quode
