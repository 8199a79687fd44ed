// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// How a program ends: what it writes, and what it says when something fails.
#pragma once

#include <functional>
#include <string>

#include "app/failure.h"

namespace quode::app {
class Session;
}

namespace quode::terminal {

/// The text of --version: the program with its number, and the sources of the data.
std::string versionText(app::Session& session, const std::string& program);

/// Writes the output of a program.
/// @return `code`, or that it could not be written, which is reported
app::ExitCode writtenOrFailed(const std::string& text, app::ExitCode code);

/// Runs a program; what it throws is reported to the user.
app::ExitCode runReportingFailures(const std::function<app::ExitCode()>& run);

}  // namespace quode::terminal
