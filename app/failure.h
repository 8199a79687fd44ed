// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace quode::app {

/// What a program ends with; documented in `quode --help` and docs/cli.md.
enum class ExitCode : int {
    ok = 0,
    notFound = 1,       ///< the requested thing does not exist (a city, a date in the table), or does not work
    usage = 2,          ///< the command line cannot be understood, or names something impossible
    damagedData = 3,    ///< a file of the installation is missing or damaged
    outputFailed = 4,   ///< the output could not be written
    internalError = 5,  ///< anything else
    userData = 6,       ///< the user's files cannot be read or changed: damaged, locked, no right, no room
};

/// The end of a command. The text says what is wrong and what to do about it.
class Failure : public std::runtime_error {
  public:
    Failure(ExitCode code, const std::string& text) : std::runtime_error(text), code_(code) {}
    ExitCode code() const { return code_; }

  private:
    ExitCode code_;
};

/// Something that failed or is worth knowing, though the program goes on.
struct Problem {
    std::string message;
    ExitCode code = ExitCode::ok;  ///< what the program ends with because of it
};

}  // namespace quode::app
