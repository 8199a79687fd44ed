// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <utility>

#include "tools/manual/manual.h"

namespace quode::manual {
namespace {

using terminal::Command;
using terminal::Parameter;

bool isDashed(const Parameter& parameter) {
    return parameter.kind == Parameter::Kind::option || parameter.kind == Parameter::Kind::toggle;
}

// A text between single quotes of a shell.
std::string singleQuoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'') result += "'\\'";
        result += c;
    }
    return result += '\'';
}

// The same inside a zsh specification, where brackets and colons have a meaning.
std::string zshText(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':') result += '\\';
        result += c;
    }
    return result;
}

std::vector<std::string> wordsAfter(const Subject& subject, const std::vector<Command>& children,
                                    const std::vector<Parameter>& parameters) {
    std::vector<std::string> words;
    for (const Command& child : children) words.push_back(child.name);
    for (const Parameter& parameter : parameters) {
        if (isDashed(parameter)) words.push_back("--" + parameter.name);
    }
    for (const Parameter& parameter : subject.program->parameters) words.push_back("--" + parameter.name);
    words.push_back("--help");
    return words;
}

// The values of each option that has choices, by a pattern of the shell for "COMMAND --OPTION".
std::vector<std::pair<std::string, std::vector<std::string>>> choicesOf(const Subject& subject) {
    std::vector<std::pair<std::string, std::vector<std::string>>> choices;
    const auto add = [&choices](const std::string& command, const std::vector<Parameter>& parameters) {
        for (const Parameter& parameter : parameters) {
            if (!parameter.choices.empty())
                choices.emplace_back(command + "' --" + parameter.name + "'", parameter.choices);
        }
    };
    for (const CommandPath& path : allPaths(subject.commands)) {
        add("'" + joined(path.words, " ") + "'", path.command->parameters);
    }
    add("*", subject.program->parameters);
    return choices;
}

// The words that lead to each command, quoted: what is typed so far is followed as long as it leads to one, so that the values
// of options and other words do not count.
std::string knownPaths(const Subject& subject, const char* separator) {
    std::vector<std::string> known;
    for (const CommandPath& path : allPaths(subject.commands)) known.push_back(singleQuoted(joined(path.words, " ")));
    return joined(known, separator);
}

std::string bashCase(const std::string& pattern, const std::vector<std::string>& words) {
    return "        " + singleQuoted(pattern) + ") words=" + singleQuoted(joined(words, " ")) + " ;;\n";
}

std::string zshArguments(const std::vector<Parameter>& parameters) {
    std::string text;
    for (const Parameter& parameter : parameters) {
        if (!isDashed(parameter)) continue;
        std::string specification = "--" + parameter.name;
        specification.append("[").append(zshText(parameter.help)).append("]");
        if (parameter.kind == Parameter::Kind::option) {
            specification.append(":").append(zshText(parameter.value)).append(":");
            if (!parameter.choices.empty()) {
                specification.append("(").append(joined(parameter.choices, " ")).append(")");
            }
        }
        text.append("            ").append(singleQuoted(specification)).append(" \\\n");
    }
    return text;
}

std::string fishOption(const std::string& head, const Parameter& parameter) {
    std::string line = head + " -l " + parameter.name + " -d " + singleQuoted(parameter.help);
    if (parameter.kind == Parameter::Kind::option) line += " -x";
    if (!parameter.choices.empty()) line += " -a " + singleQuoted(joined(parameter.choices, " "));
    return line + "\n";
}

}  // namespace

std::string bashCompletion(const Subject& subject) {
    const std::string& name = subject.program->name;
    std::string text = "# bash completion for " + name + "\n_" + name + "() {\n";
    text += "    local cur=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} path= word words=\n";
    text += "    COMPREPLY=()\n    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n";
    text += "        case \"${path:+$path }$word\" in\n        " + knownPaths(subject, "|") +
            ") path+=\"${path:+ }$word\" ;;\n        esac\n    done\n";
    text += "    case \"$path $previous\" in\n";
    for (const auto& [option, values] : choicesOf(subject)) {
        text += "        " + option + ") COMPREPLY=($(compgen -W " + singleQuoted(joined(values, " ")) +
                " -- \"$cur\")); return ;;\n";
    }
    text += "    esac\n    case $path in\n";
    std::vector<std::string> all = wordsAfter(subject, subject.commands, {});
    all.push_back("--version");
    text += bashCase("", all);
    for (const CommandPath& path : allPaths(subject.commands)) {
        text +=
            bashCase(joined(path.words, " "), wordsAfter(subject, path.command->children, path.command->parameters));
    }
    text +=
        "    esac\n    COMPREPLY=($(compgen -W \"$words\" -- \"$cur\"))\n}\ncomplete -F _" + name + " " + name + "\n";
    return text;
}

std::string zshCompletion(const Subject& subject) {
    const std::string& name = subject.program->name;
    std::string text = "#compdef " + name + "\n";
    text += "_" + name + "() {\n    local route= word\n    local -a commands rest\n";
    text += "    for word in ${words[2,CURRENT-1]}; do\n        case ${route:+$route }$word in\n        " +
            knownPaths(subject, "|") +
            ") route+=${route:+ }$word ;;\n        *) rest+=($word) ;;\n        esac\n    done\n";
    // _arguments takes the words that lead to the command for arguments of it.
    text += "    words=($words[1] $rest \"${(@)words[CURRENT,-1]}\")\n    (( CURRENT = $#rest + 2 ))\n";
    text += "    case $route in\n";
    const auto entry = [&](const std::string& path, const std::vector<Command>& children,
                           const std::vector<Parameter>& parameters) {
        text += "        " + singleQuoted(path) + ")\n            commands=(";
        for (const Command& child : children) text += singleQuoted(child.name + ":" + child.summary) + " ";
        text += ")\n            (( $#commands )) && _describe command commands\n            _arguments \\\n";
        text += zshArguments(parameters) + zshArguments(subject.program->parameters);
        text += "            '--help[Explain the command]' '*: : ' ;;\n";
    };
    entry("", subject.commands, {});
    for (const CommandPath& path : allPaths(subject.commands)) {
        entry(joined(path.words, " "), path.command->children, path.command->parameters);
    }
    return text + "    esac\n}\n_" + name + " \"$@\"\n";
}

std::string fishCompletion(const Subject& subject) {
    const std::string& name = subject.program->name;
    std::string text = "# fish completion for " + name + "\n";
    text += "function __" + name + "_at\n    set -l path ''\n    for word in (commandline -opc)[2..]\n";
    text += "        set -l longer (string trim \"$path $word\")\n        if contains -- \"$longer\" " +
            knownPaths(subject, " ") + "\n            set path \"$longer\"\n        end\n    end\n";
    text += "    test \"$path\" = \"$argv[1]\"\nend\ncomplete -c " + name + " -f\n";
    const auto at = [&](const std::string& path) {
        return "complete -c " + name + " -n \"__" + name + "_at '" + path + "'\"";
    };
    const auto children = [&](const std::string& path, const std::vector<Command>& commands) {
        for (const Command& child : commands) {
            text += at(path) + " -a " + child.name + " -d " + singleQuoted(child.summary) + "\n";
        }
    };
    for (const Parameter& parameter : subject.program->parameters) text += fishOption("complete -c " + name, parameter);
    text += "complete -c " + name + " -l help -d 'Explain the command'\n";
    children("", subject.commands);
    for (const CommandPath& path : allPaths(subject.commands)) {
        const std::string words = joined(path.words, " ");
        children(words, path.command->children);
        for (const Parameter& parameter : path.command->parameters) {
            if (isDashed(parameter)) text += fishOption(at(words), parameter);
        }
    }
    return text;
}

}  // namespace quode::manual
