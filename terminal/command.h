// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What a command is: its name, its parameters and what it does. A new command of `quode` takes a file in cli/commands
// and a line in cli/commands.cpp.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quode::terminal {

class Console;

/// One parameter of a command.
struct Parameter {
    enum class Kind {
        option,  ///< --name VALUE
        toggle,  ///< --name
        word,    ///< a plain word of the command line
        words,   ///< all remaining plain words, joined by blanks
    };

    Kind kind = Kind::option;
    std::string name;   ///< without dashes; for words the name in the help, such as "DATE"
    std::string value;  ///< of an option: what is expected, such as "YYYY-MM-DD"
    std::string help;
    bool required = false;
    std::vector<std::string> choices = {};  ///< when not empty, the only values allowed
};

/// The parameters that were given, as texts.
class Arguments {
  public:
    bool has(std::string_view name) const { return values_.contains(name); }

    /// The value of a parameter; nothing when it was not given.
    std::optional<std::string> text(std::string_view name) const;

    void set(const std::string& name, std::string value) { values_[name] = std::move(value); }

    const std::map<std::string, std::string, std::less<>>& all() const { return values_; }

  private:
    std::map<std::string, std::string, std::less<>> values_;
};

/// A command, or a group of commands; a program without commands is one too.
struct Command {
    std::string name;
    std::string summary;
    std::vector<Parameter> parameters;
    std::function<void(Console&, const Arguments&)> run = {};  ///< not of a group, nor of a program without commands
    std::vector<Command> children = {};
};

// Parameters that several commands share.
Parameter cityParameter();
Parameter dateParameter();
Parameter languageParameter();

/// The parameters that every command has.
std::vector<Parameter> commonParameters();

}  // namespace quode::terminal
