// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The command line of quode-settings.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "terminal/command_line.h"

namespace quode::window {

struct WindowOptions {
    std::optional<std::string> language;
    std::string page;  ///< to be opened; empty: the first
};

/// Reads the arguments. Throws `app::Failure` (usage).
std::variant<WindowOptions, terminal::HelpText, terminal::VersionRequest> readCommandLine(
    const std::vector<std::string>& arguments);

}  // namespace quode::window
