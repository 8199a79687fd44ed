// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/manual/manual.h"

#include <algorithm>

namespace quode::manual {
namespace {

using terminal::Command;
using terminal::Parameter;

// Text as roff takes it: a hyphen that is typed, a backslash, and a line that begins like a request.
std::string roff(std::string_view text) {
    std::string escaped;
    bool atStart = true;
    for (const char c : text) {
        if (atStart && (c == '.' || c == '\'')) escaped += "\\&";
        if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else {
            escaped += c;
        }
        atStart = c == '\n';
    }
    return escaped;
}

std::string capitals(std::string text) {
    for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return text;
}

bool isPlainWord(const Parameter& parameter) {
    return parameter.kind == Parameter::Kind::word || parameter.kind == Parameter::Kind::words;
}

std::string termOf(const Parameter& parameter) {
    if (isPlainWord(parameter)) return "\\fI" + roff(parameter.name) + "\\fR";
    std::string term = "\\fB" + roff("--" + parameter.name) + "\\fR";
    if (!parameter.value.empty()) term += " \\fI" + roff(parameter.value) + "\\fR";
    return term;
}

std::string tagged(const std::vector<Parameter>& parameters) {
    std::string text;
    for (const Parameter& parameter : parameters) {
        text += ".TP\n" + termOf(parameter) + "\n" + roff(parameter.help) + ".\n";
    }
    return text;
}

std::string synopsisOf(const std::string& name, const CommandPath& path) {
    std::string line = "\\fB" + roff(name + " " + joined(path.words, " ")) + "\\fR";
    for (const Parameter& parameter : path.command->parameters) {
        if (!isPlainWord(parameter)) continue;
        const std::string word = "\\fI" + roff(parameter.name) + "\\fR";
        line += parameter.required ? " " + word : " [" + word + "]";
    }
    return line;
}

// The help's last lines: headings end with a colon, their lines are indented.
std::string sectionsOf(const std::string& footer) {
    std::string text;
    bool isIndented = false;
    for (std::size_t at = 0, end = 0; at < footer.size(); at = end + 1) {
        end = std::min(footer.find('\n', at), footer.size());
        const std::string line = footer.substr(at, end - at);
        const bool isHeading = !line.empty() && line.front() != ' ' && line.back() == ':';
        if (isIndented && (isHeading || line.empty())) {
            text += ".fi\n.RE\n";
            isIndented = false;
        }
        if (isHeading) {
            text += ".SH " + capitals(line.substr(0, line.size() - 1)) + "\n.RS 0\n.nf\n";
            isIndented = true;
        } else if (!line.empty()) {
            text += (isIndented ? "" : ".PP\n") + roff(line) + "\n";
        }
    }
    return text + (isIndented ? ".fi\n.RE\n" : "");
}

}  // namespace

std::string manualPage(const Subject& subject) {
    const terminal::Program& program = *subject.program;
    const std::string summary = program.description.substr(0, program.description.find_first_of(".\n"));
    std::string page = ".TH " + capitals(program.name) + " 1 \"\" \"Quode " + subject.version + "\"\n";
    page += ".SH NAME\n" + program.name + " \\- " + roff(summary) + "\n";
    page += ".SH SYNOPSIS\n\\fB" + program.name + "\\fR [\\fICOMMAND\\fR] [\\fIOPTIONS\\fR]\n";
    page += ".SH DESCRIPTION\n" + roff(program.description) + "\n";
    page += ".SH OPTIONS\nEvery command takes these.\n" + tagged(program.parameters);
    page += ".TP\n\\fB\\-\\-help\\fR\nExplain the command.\n.TP\n\\fB\\-\\-version\\fR\n" + roff(program.versionHelp) +
            ".\n";
    page += ".SH COMMANDS\n";
    for (const CommandPath& path : allPaths(subject.commands)) {
        page += ".SS " + synopsisOf(program.name, path) + "\n" + roff(path.command->summary) + ".\n";
        page += tagged(path.command->parameters);
    }
    return page + sectionsOf(program.footer);
}

}  // namespace quode::manual
