// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The settings window as a program.
#pragma once

#include "app/failure.h"
#include "companion/language.h"
#include "platform/Environment.h"
#include "window/command.h"

namespace quode::window {

/// Opens the window and serves it until it is closed; where another process of the session does that already, the
/// window of that one is opened. Makes the application object itself, once in a process. Throws `app::Failure`.
app::ExitCode runWindow(const Environment& environment, const LanguageChoice& language, const WindowOptions& options);

}  // namespace quode::window
