// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The command line of the panel.
#pragma once

#include <optional>
#include <string>

#include "host/screenshot.h"
#include "terminal/command_line.h"

namespace quode::host {

/// What a start of the program is to do.
struct PanelOptions {
    std::optional<std::string> language;
    std::optional<ScreenshotOptions> screenshot;  ///< nothing: open the panel
};

/// Reads a command line. Throws `app::Failure` (usage).
/// @return the options, or the requested help or version
std::variant<PanelOptions, terminal::HelpText, terminal::VersionRequest> readCommandLine(
    const std::vector<std::string>& arguments);

}  // namespace quode::host
