// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "terminal/command.h"

namespace quode::terminal {

/// A command with what was given to it.
struct Invocation {
    const Command* command = nullptr;
    Arguments arguments;
};

/// Requested help, or a request for the version.
struct HelpText {
    std::string text;
};
struct VersionRequest {};

using ParsedLine = std::variant<Invocation, HelpText, VersionRequest>;

/// A program, as its help describes it.
struct Program {
    std::string name;
    std::string description;
    std::string footer;                 ///< what the help ends with
    std::vector<Parameter> parameters;  ///< that every command has
    std::string versionHelp = {};
};

/// The value of --lang, found before anything else is read: messages about the rest are in that language.
std::optional<std::string> languageOption(const std::vector<std::string>& arguments);

/// The end of a help text: environment variables and exit codes, each with its meaning.
/// @param exitCodes  from 0 on
std::string helpFooter(const std::vector<std::pair<const char*, const char*>>& variables,
                       const std::vector<const char*>& exitCodes);

/// Reads the command line of a program. Throws `Failure` (usage) when it cannot be understood.
/// @param commands        all commands; may be empty
/// @param defaultCommand  the one that runs when none is named
/// @param arguments       without the program's name
/// @param columns         of the terminal, for which help is laid out
ParsedLine parseCommandLine(const Program& program, const std::vector<Command>& commands, const Command& defaultCommand,
                            std::vector<std::string> arguments, std::optional<int> columns = {});

}  // namespace quode::terminal
