// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/command.h"

#include "texts/translation.h"

namespace quode::window {
namespace {

using terminal::Parameter;

terminal::Program program() {
    return {
        "quode-settings",
        _("The settings of Quode in a window: cities, alarms, times, look, calendar. A second start opens the "
          "window of the first."),
        terminal::helpFooter({{"QUODE_LANG", _("the language when --lang is not given")},
                              {"QUODE_NOW", _("the moment used as now, such as 2026-11-21T04:00:00Z")},
                              {"QUODE_BUNDLE_DIR", _("the folder with the city database and the language files")},
                              {"QUODE_DATA_DIR", _("the folder of the user's files")}},
                             {_("done"), _("not found: no display"),
                              _("the command line cannot be understood, or names something impossible"),
                              _("a file of the installation is missing or damaged"), _("the output cannot be written"),
                              _("unexpected error"), _("the user's files cannot be read or changed")}),
        {terminal::languageParameter()},
        _("Show the version and the sources of the data")};
}

terminal::Command command() {
    Parameter page{Parameter::Kind::option, "page", "PAGE", _("The page to open")};
    page.choices = {"cities", "alarms", "times", "timetable", "look", "calendar", "about"};
    return {"", "", {page}};
}

}  // namespace

std::variant<WindowOptions, terminal::HelpText, terminal::VersionRequest> readCommandLine(
    const std::vector<std::string>& arguments) {
    terminal::ParsedLine line = terminal::parseCommandLine(program(), {}, command(), arguments);
    if (auto* help = std::get_if<terminal::HelpText>(&line)) return std::move(*help);
    if (std::holds_alternative<terminal::VersionRequest>(line)) return terminal::VersionRequest{};
    const terminal::Arguments& given = std::get<terminal::Invocation>(line).arguments;
    return WindowOptions{given.text("lang"), given.text("page").value_or("")};
}

}  // namespace quode::window
