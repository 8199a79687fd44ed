// The command line of the panel.
#pragma once

#include <optional>
#include <string>

#include "cli/command_line.h"
#include "host/screenshot.h"

namespace quode::host {

/// What a start of the program is to do.
struct PanelWish {
    std::optional<std::string> language;
    std::optional<ScreenshotWish> screenshot;  ///< nothing: open the panel
};

/// Reads a command line. Returned: the wish, or the help or version that was asked for. Throws `cli::Failure` (usage).
std::variant<PanelWish, cli::HelpText, cli::VersionWish> readCommandLine(const std::vector<std::string>& arguments);

}  // namespace quode::host
