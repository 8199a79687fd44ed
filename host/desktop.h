// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The panel on the desktop.
#pragma once

#include <optional>
#include <string>

#include "app/failure.h"
#include "companion/language.h"
#include "platform/Environment.h"

namespace quode::host {

/// Opens the panel and serves it until the user ends it; where another process of the session does that already, the
/// panel of that one is opened. Makes the application object itself, once in a process. Throws `app::Failure`.
/// @param languageOption  what --lang said: the panel follows a change of the setting while it runs, but not against it
app::ExitCode runOnDesktop(const Environment& environment, const LanguageChoice& language,
                           const std::optional<std::string>& languageOption);

}  // namespace quode::host
