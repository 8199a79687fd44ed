// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The command line of the panel.
#pragma once

#include <optional>
#include <string>

#include "app/command_line.h"
#include "host/screenshot.h"

namespace quode::host {

/// What a start of the program is to do.
struct PanelOptions {
    std::optional<std::string> language;
    std::optional<ScreenshotOptions> screenshot;  ///< nothing: open the panel
};

/// Reads a command line. Returned: the options, or the help or version that was asked for. Throws `app::Failure` (usage).
std::variant<PanelOptions, app::HelpText, app::VersionRequest> readCommandLine(
    const std::vector<std::string>& arguments);

}  // namespace quode::host
