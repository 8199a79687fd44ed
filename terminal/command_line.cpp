// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "terminal/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <list>
#include <numeric>
#include <string_view>
#include <utility>

#include "app/failure.h"
#include "common/utf8.h"
#include "terminal/text_layout.h"
#include "texts/translation.h"

namespace quode::terminal {
namespace {

using app::ExitCode;
using app::Failure;

// Where the explanations begin; on narrow pages they stand below what they explain.
constexpr std::size_t helpColumn = 30, narrowHelpColumn = 6;
constexpr int wideEnough = 60;

/// The values that one command receives from the parser.
struct Slots {
    const Command* command = nullptr;
    CLI::App* app = nullptr;
    struct Slot {
        const Parameter* parameter = nullptr;
        CLI::Option* option = nullptr;
        std::string value;
        std::vector<std::string> words;
        bool isSet = false;
    };
    std::list<Slot> slots;  // a list, for the parser keeps references
};

void addParameter(CLI::App& app, const Parameter& parameter, Slots::Slot& slot) {
    slot.parameter = &parameter;
    switch (parameter.kind) {
        case Parameter::Kind::toggle:
            slot.option = app.add_flag("--" + parameter.name, slot.isSet, parameter.help);
            break;
        case Parameter::Kind::option:
            slot.option = app.add_option("--" + parameter.name, slot.value, parameter.help);
            slot.option->type_name(parameter.value);
            break;
        case Parameter::Kind::word:
            slot.option = app.add_option(parameter.name, slot.value, parameter.help);
            slot.option->type_name("");
            break;
        case Parameter::Kind::words:
            slot.option = app.add_option(parameter.name, slot.words, parameter.help);
            slot.option->type_name("");
            break;
    }
    slot.option->required(parameter.required);
}

void prepare(CLI::App& app, int width) {
    app.get_formatter()->column_width(width < wideEnough ? narrowHelpColumn : helpColumn);
    app.get_formatter()->label("REQUIRED", _("(required)"));
    app.get_formatter()->label("OPTIONS", _("OPTIONS"));
    app.get_formatter()->label("SUBCOMMAND", _("COMMAND"));
    app.get_formatter()->label("SUBCOMMANDS", _("COMMANDS"));
    app.get_formatter()->label("Usage", _("Usage"));
    app.get_formatter()->label("Positionals", _("Arguments"));
    app.group(_("Commands"));
    app.option_defaults()->group(_("Options"));
    app.set_help_flag("-h,--help", _("Explain the command"))->group(_("Options"));
}

void checkChoices(const Parameter& parameter, const std::string& value) {
    const auto& choices = parameter.choices;
    if (choices.empty() || std::find(choices.begin(), choices.end(), value) != choices.end()) return;
    std::string list;
    for (const std::string& choice : choices) list += (list.empty() ? "" : ", ") + choice;
    throw Failure(ExitCode::usage, _("--{} is one of {}, not \"{}\".", parameter.name, list, value));
}

Arguments argumentsOf(const Slots& slots) {
    Arguments arguments;
    for (const Slots::Slot& slot : slots.slots) {
        if (slot.option->count() == 0) continue;
        std::string value = slot.value;
        for (const std::string& word : slot.words) value += (value.empty() ? "" : " ") + word;
        checkChoices(*slot.parameter, value);
        arguments.set(slot.parameter->name, value);
    }
    return arguments;
}

/// How a parameter is written: "--city CITY", "NAME".
std::string writtenAs(const Parameter& parameter) {
    return parameter.kind == Parameter::Kind::option ? "--" + parameter.name + " " + parameter.value : parameter.name;
}

/// A line of help whose explanation begins after two blanks or more: wrapped in its column, or below where that is
/// narrow.
std::string wrappedHelpLine(const std::string& line, int width) {
    constexpr int narrowest = 24;
    const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
    const std::size_t gap = std::min(line.find("  ", start), line.size());
    const std::size_t text = std::min(line.find_first_not_of(' ', gap), line.size());
    const int column = displayWidth(std::string_view(line).substr(0, text));
    if (text == line.size() || width - column < narrowest) return fitted(line, width);
    return line.substr(0, text) + indented(wrapped(line.substr(text), width - column, 0), column);
}

std::string wrappedHelp(const std::string& help, int width) {
    std::string text;
    for (std::size_t at = 0; at < help.size();) {
        const std::size_t end = std::min(help.find('\n', at), help.size());
        const std::string line = help.substr(at, end - at);
        text += (displayWidth(line) > width ? wrappedHelpLine(line, width) : line) + '\n';
        at = end + 1;
    }
    return text;
}

constexpr std::size_t largestMistake = 2;

/// How many letters have to be put in, left out or replaced to make one word of the other.
std::size_t mistakesBetween(std::string_view one, std::string_view other) {
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < one.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < other.size(); ++j) {
            const std::size_t replaced = diagonal + (one[i] == other[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

/// The parser for a set of commands, with the values it fills.
class Parser {
  public:
    /// words: the command line. Of commands whose name is not among them only what the help lists is declared.
    /// width: of the page for help.
    Parser(const Program& program, const std::vector<Command>& commands, const Command& defaultCommand,
           const std::vector<std::string>& words, int width)
        : common_(program.parameters), words_(words), width_(width), app_(program.description, program.name) {
        prepare(app_, width_);
        version_ = app_.add_flag("--version", wantsVersion_, program.versionHelp);
        fill(app_, defaultCommand);
        addChildren(app_, commands);
        if (!commands.empty()) app_.require_subcommand(0, 1);
        app_.footer(program.footer);  // after the commands, which would take it over
    }

    void parse(std::vector<std::string> arguments) {
        std::reverse(arguments.begin(), arguments.end());  // as the parser wants them
        app_.parse(std::move(arguments));
    }

    bool wantsVersion() const { return version_->count() > 0; }

    std::string help() const { return wrappedHelp(app_.help(), width_); }

    Invocation invocation() const {
        const Slots& chosen = deepest();
        if (chosen.command->run || chosen.command->children.empty()) return {chosen.command, mergedArguments(chosen)};
        throw Failure(ExitCode::usage, _("{0} needs a command. Try: {0} --help", commandPath()));
    }

    /// What is wrong with the command line, in the language of the program.
    std::string problemOf(const CLI::ParseError& error) const {
        if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) return problemOfUnknown();
        for (const Slots::Slot& slot : deepest().slots) {
            const bool isMissing = slot.parameter->required && slot.option->count() == 0;
            if (isMissing) return _("{0} needs {1}.", commandPath(), writtenAs(*slot.parameter));
        }
        // The parser names the option first: "--city: 1 required CITY missing".
        const std::string_view text = error.what();
        return problemOfOption(std::string(text.substr(0, text.find_first_of(": "))));
    }

    std::string commandPath() const {
        const Slots& chosen = deepest();
        return chosen.app == &app_ ? app_.get_name() : app_.get_name() + " " + pathOf(*chosen.app);
    }

  private:
    std::string problemOfUnknown() const {
        const std::string unknown = app_.remaining(true).front(), nearest = nearestTo(unknown);
        std::string problem = _("{0} does not know \"{1}\".", commandPath(), unknown);
        if (!nearest.empty()) problem.append(" ").append(_("Did you mean \"{}\"?", nearest));
        return problem;
    }

    std::string problemOfOption(const std::string& name) const {
        for (const CLI::App* app = deepest().app; app != nullptr; app = app->get_parent()) {
            for (const Slots::Slot& slot : slotsOf(app).slots) {
                if (name != "--" + slot.parameter->name) continue;
                if (slot.parameter->kind == Parameter::Kind::toggle) return _("{} takes no value.", name);
                return slot.option->count() > 1 ? _("{} was given more than once.", name)
                                                : _("{0} needs a value: {1}.", name, writtenAs(*slot.parameter));
            }
        }
        return _("The command line cannot be understood at \"{}\".", name);
    }

    /// The command or option that is nearest to a word with a typing mistake; empty when none is near.
    std::string nearestTo(const std::string& word) const {
        std::vector<std::string> names;
        for (const CLI::App* const command : deepest().app->get_subcommands([](const CLI::App*) { return true; })) {
            names.push_back(command->get_name());
        }
        for (const Slots::Slot& slot : deepest().slots) names.push_back(slot.option->get_name());
        std::string nearest;
        std::size_t least = largestMistake + 1;
        for (const std::string& name : names) {
            const std::size_t distance = mistakesBetween(word.substr(0, word.find('=')), name);
            if (distance < least && distance < word.size()) {
                least = distance;
                nearest = name;
            }
        }
        return nearest;
    }

    void fill(CLI::App& app, const Command& command) {
        Slots& slots = slots_.emplace_back();
        slots.command = &command;
        slots.app = &app;
        for (const Parameter& parameter : command.parameters) addParameter(app, parameter, slots.slots.emplace_back());
        for (const Parameter& parameter : common_) addParameter(app, parameter, slots.slots.emplace_back());
    }

    void addChildren(CLI::App& parent, const std::vector<Command>& commands) {
        for (const Command& command : commands) {
            CLI::App& app = *parent.add_subcommand(command.name, command.summary);
            if (std::find(words_.begin(), words_.end(), command.name) == words_.end()) continue;
            prepare(app, width_);
            fill(app, command);
            addChildren(app, command.children);
            if (!command.children.empty()) app.require_subcommand(0, 1);
        }
    }

    std::string pathOf(const CLI::App& app) const {
        const CLI::App* parent = app.get_parent();
        return parent == nullptr || parent == &app_ ? app.get_name() : pathOf(*parent) + " " + app.get_name();
    }

    /// The innermost command that was named; the program itself when none was.
    const Slots& deepest() const {
        const CLI::App* app = &app_;
        while (!app->get_subcommands().empty()) app = app->get_subcommands().front();
        return slotsOf(app);
    }

    const Slots& slotsOf(const CLI::App* app) const {
        return *std::find_if(slots_.begin(), slots_.end(), [app](const Slots& slots) { return slots.app == app; });
    }

    /// What was given before the name of the command: to the program and to the groups that it belongs to.
    Arguments outerArguments(const Slots& chosen) const {
        Arguments outer;
        for (const CLI::App* app = chosen.app->get_parent(); app != nullptr; app = app->get_parent()) {
            const Arguments given = argumentsOf(slotsOf(app));
            for (const auto& [name, value] : given.all()) {
                if (!outer.has(name)) outer.set(name, value);
            }
        }
        return outer;
    }

    /// What was given to the command, and what was given before its name.
    Arguments mergedArguments(const Slots& chosen) const {
        Arguments arguments = outerArguments(chosen);
        for (const auto& [name, value] : arguments.all()) {
            const auto isOfCommand = [&name = name](const Slots::Slot& slot) { return slot.parameter->name == name; };
            if (std::none_of(chosen.slots.begin(), chosen.slots.end(), isOfCommand)) {
                throw Failure(ExitCode::usage, _("{0} has no option --{1}. Try: {0} --help", commandPath(), name));
            }
        }
        const Arguments own = argumentsOf(chosen);
        for (const auto& [name, value] : own.all()) arguments.set(name, value);
        return arguments;
    }

    std::vector<Parameter> common_;
    const std::vector<std::string>& words_;
    int width_;
    CLI::App app_;
    bool wantsVersion_ = false;
    CLI::Option* version_ = nullptr;
    std::list<Slots> slots_;
};

std::string escaped(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        constexpr const char* digits = "0123456789abcdef";
        if (value >= 0x20 && value < 0x7f) {
            text += byte;
        } else {
            text += std::string("\\x") + digits[value >> 4] + digits[value & 15];
        }
    }
    return text;
}

void checkEncoding(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        if (isUtf8(argument)) continue;
        throw Failure(ExitCode::usage,
                      _("\"{}\" is not UTF-8 text. Set the terminal to UTF-8, or write the name without accents.",
                        escaped(argument)));
    }
}

// A number below 0, alone or as the first coordinate of a point.
bool isNegativeNumber(std::string_view argument) {
    constexpr std::string_view digits = "0123456789.";
    if (argument.size() < 2 || argument[0] != '-' || digits.find(argument[1]) == std::string_view::npos) return false;
    const std::size_t end = argument.find_first_not_of(digits, 1);
    return end == std::string_view::npos || argument.find(',') != std::string_view::npos;
}

// A blank keeps numbers and coordinates such as "-33.87,151.21" from being read as options; their readers skip it.
void shieldNumbers(std::vector<std::string>& arguments) {
    for (std::string& argument : arguments) {
        if (isNegativeNumber(argument)) argument.insert(0, " ");
    }
}

}  // namespace

std::optional<std::string> languageOption(const std::vector<std::string>& arguments) {
    constexpr std::string_view option = "--lang";
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--") return std::nullopt;
        if (argument == option && i + 1 < arguments.size()) return arguments[i + 1];
        if (argument.starts_with("--lang=")) return std::string(argument.substr(option.size() + 1));
    }
    return std::nullopt;
}

std::string helpFooter(const std::vector<std::pair<const char*, const char*>>& variables,
                       const std::vector<const char*>& exitCodes) {
    constexpr int nameWidth = 16;
    std::string text = std::string(_("Environment:")) + '\n';
    for (const auto& [name, meaning] : variables) text += "  " + padRight(name, nameWidth) + "  " + meaning + '\n';
    text.append("\n").append(_("Exit codes:")).append("\n");
    for (std::size_t code = 0; code < exitCodes.size(); ++code) {
        text += fmt::format("  {}  {}\n", code, exitCodes[code]);
    }
    return text;
}

ParsedLine parseCommandLine(const Program& program, const std::vector<Command>& commands, const Command& defaultCommand,
                            std::vector<std::string> arguments, std::optional<int> columns) {
    checkEncoding(arguments);
    shieldNumbers(arguments);
    const int width = std::clamp(columns.value_or(pageWidth), narrowestPage, pageWidth);
    Parser parser(program, commands, defaultCommand, arguments, width);
    try {
        parser.parse(arguments);
    } catch (const CLI::CallForHelp&) {
        return HelpText{parser.help()};
    } catch (const CLI::ParseError& error) {
        if (parser.wantsVersion()) return VersionRequest{};
        throw Failure(ExitCode::usage, parser.problemOf(error) + " " + _("Try: {} --help", parser.commandPath()));
    }
    if (parser.wantsVersion()) return VersionRequest{};
    return parser.invocation();
}

}  // namespace quode::terminal
