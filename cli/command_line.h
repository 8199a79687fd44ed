#pragma once

#include <string>
#include <variant>
#include <vector>

#include "cli/command.h"

namespace quode::cli {

/// A command with what was given to it.
struct Invocation {
    const Command* command = nullptr;
    Arguments arguments;
};

/// Help that was asked for, or the wish to see the version.
struct HelpText {
    std::string text;
};
struct VersionWish {};

using ParsedLine = std::variant<Invocation, HelpText, VersionWish>;

/// Reads a command line. Throws `Failure` (usage) when it cannot be understood.
/// commands        all commands; the one given without any name is `defaultCommand`, which is one of them
/// arguments       without the program's name
ParsedLine parseCommandLine(const std::vector<Command>& commands, const Command& defaultCommand,
                            std::vector<std::string> arguments);

}  // namespace quode::cli
