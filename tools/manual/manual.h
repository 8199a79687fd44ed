// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The manual page and the shell completions of a program, written from the commands that its --help is written from.
#pragma once

#include <string>
#include <vector>

#include "terminal/command.h"
#include "terminal/command_line.h"

namespace quode::manual {

/// A program with its commands.
struct Subject {
    const terminal::Program* program = nullptr;
    std::vector<terminal::Command> commands;
    std::string version;
};

/// The page for section 1, in the man macros of roff.
std::string manualPage(const Subject& subject);

/// A completion for bash, sourced from bash-completion's folder.
std::string bashCompletion(const Subject& subject);

/// A completion function for zsh, autoloaded from a folder of $fpath.
std::string zshCompletion(const Subject& subject);

/// A completion for fish.
std::string fishCompletion(const Subject& subject);

/// A command with the words that lead to it, such as {"city", "add"}; the program itself has none.
struct CommandPath {
    std::vector<std::string> words;
    const terminal::Command* command = nullptr;
};

/// Every command and its children, in the order of the help.
std::vector<CommandPath> allPaths(const std::vector<terminal::Command>& commands);

/// Words joined by a separator.
std::string joined(const std::vector<std::string>& words, const char* separator);

}  // namespace quode::manual
