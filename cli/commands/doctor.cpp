// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode doctor: whether all is in order, and what to do where it is not.
#include "app/doctor_checks.h"
#include "app/repairs.h"
#include "cli/commands.h"
#include "terminal/Console.h"
#include "texts/translation.h"

#include <algorithm>

namespace quode::cli {
namespace {

constexpr int markWidth = 4, leastNameWidth = 15;
constexpr int narrowTextColumn = 4, wideEnough = 60;  // on narrower pages the texts stand below the names

const char* stateName(Finding::State state) {
    switch (state) {
        case Finding::State::ok:
            return "ok";
        case Finding::State::note:
            return "note";
        default:
            return "problem";
    }
}

Json findingsJson(const std::vector<Finding>& findings, bool isWell) {
    Json::Array checks;
    for (const Finding& each : findings) {
        checks.push_back(object({{"key", each.key},
                                 {"name", each.name},
                                 {"state", stateName(each.state)},
                                 {"text", each.text},
                                 {"advice", each.advice.empty() ? Json() : Json(each.advice)},
                                 {"command", each.command.empty() ? Json() : Json(each.command)}}));
    }
    return object({{"ok", isWell}, {"checks", checks}});
}

// Of the column of the names, with a blank after the longest.
int nameWidthOf(const std::vector<Finding>& findings) {
    int width = leastNameWidth;
    for (const Finding& each : findings) width = std::max(width, displayWidth(each.name) + 1);
    return width;
}

void printFinding(Console& console, const Finding& finding, int nameWidth) {
    const Style& style = console.style();
    const bool isProblem = finding.state == Finding::State::problem;
    const char* mark = isProblem ? "!   " : finding.state == Finding::State::note ? "–   " : "ok  ";
    const bool isWide = console.textWidth() >= wideEnough;
    const int column = isWide ? markWidth + nameWidth : narrowTextColumn;
    const std::string beforeText = isWide ? "" : "\n" + std::string(narrowTextColumn, ' ');
    const auto inColumn = [&](const std::string& text) {
        return indented(wrapped(text, console.textWidth() - column, 0), column);
    };
    const std::string line =
        mark + padRight(finding.name, isWide ? nameWidth : 0) + beforeText + inColumn(finding.text);
    console.print(isProblem ? style.warning(line) : line);
    for (const std::string& text : {finding.advice, finding.command}) {
        if (!text.empty()) console.print(std::string(static_cast<std::size_t>(column), ' ') + inColumn(text));
    }
}

void runDoctor(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    if (arguments.has("tidy")) removeStrayEvents(session);
    const std::vector<Finding> findings = examine(session);
    const auto problems = std::ranges::count(findings, Finding::State::problem, &Finding::state);
    if (console.wantsJson()) {
        console.printJson(findingsJson(findings, problems == 0));
    } else {
        const int nameWidth = nameWidthOf(findings);
        for (const Finding& each : findings) printFinding(console, each, nameWidth);
    }
    if (problems > 0) console.endWith(ExitCode::notFound);
}

}  // namespace

Command doctorCommand() {
    return {"doctor",
            _("Check what times and alarms depend on"),
            {{Parameter::Kind::toggle, "tidy", "", _("First remove the calendar events of alarms that are gone")}},
            runDoctor};
}

}  // namespace quode::cli
