// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/command.h"

#include "app/dates.h"
#include "app/failure.h"
#include "common/numbers.h"
#include "terminal/streams.h"
#include "texts/translation.h"

namespace quode::host {
namespace {

using app::ExitCode;
using app::Failure;
using terminal::Arguments;
using terminal::Parameter;

std::string footer() {
    return std::string(_("The picture is drawn without a display. It shows the city of --city, of $QUODE_CITY, or the "
                         "home city.")) +
           "\n\n" +
           terminal::helpFooter(
               {{"QUODE_CITY", _("the city of a picture when --city is not given")},
                {"QUODE_LANG", _("the language when --lang is not given")},
                {"QUODE_NOW", _("the moment used as now, such as 2026-11-21T04:00:00Z")},
                {"QUODE_BUNDLE_DIR", _("the folder with the widget, the city database and the language files")},
                {"QUODE_DATA_DIR", _("the folder of the user's files")}},
               {_("done"), _("not found: no such city, no display"),
                _("the command line cannot be understood, or names something impossible"),
                _("a file of the installation is missing or damaged"), _("the picture cannot be written"),
                _("unexpected error"), _("the user's files cannot be read or changed")});
}

terminal::Program panelProgram() {
    return {"quode-panel",
            _("Prayer times in a panel on the desktop: from an icon in the tray, or in a window where there is no "
              "tray. A second start opens the panel of the first."),
            footer(),
            {terminal::languageParameter()},
            _("Show the version and the sources of the data")};
}

terminal::Command panelCommand() {
    const auto toggle = [](const char* name, const char* help) {
        return Parameter{Parameter::Kind::toggle, name, "", help};
    };
    return {"",
            "",
            {{Parameter::Kind::option, "screenshot", "FILE", _("Draw the panel into a PNG file instead")},
             {Parameter::Kind::option, "scale", "FACTOR", _("Pixels per point of the picture, 1 to 4")},
             toggle("info", _("The picture shows the lines about the city")),
             toggle("all", _("The picture shows the further times")),
             toggle("compass", _("The picture shows the compass")),
             terminal::cityParameter(),
             terminal::dateParameter()}};
}

double scaleOf(const Arguments& arguments) {
    const std::string text = arguments.text("scale").value_or("1");
    const std::optional<double> scale = numberOf<double>(text);
    if (scale && *scale >= 1.0 && *scale <= 4.0) return *scale;
    throw Failure(ExitCode::usage, _("--scale is a number from 1 to 4, not \"{}\".", text));
}

void refuseWithoutPicture(const Arguments& arguments) {
    for (const char* name : {"scale", "info", "all", "compass", "city", "date"}) {
        if (!arguments.has(name)) continue;
        throw Failure(ExitCode::usage, _("--{} is for a picture: add --screenshot FILE.", name));
    }
}

std::optional<ScreenshotOptions> screenshotOf(const Arguments& arguments) {
    const std::optional<std::string> file = arguments.text("screenshot");
    if (!file) {
        refuseWithoutPicture(arguments);
        return std::nullopt;
    }
    if (file->empty()) throw Failure(ExitCode::usage, _("--screenshot needs the name of a file."));
    ScreenshotOptions options;
    options.file = *file;
    options.scale = scaleOf(arguments);
    options.info = arguments.has("info");
    options.all = arguments.has("all");
    options.compass = arguments.has("compass");
    options.city = arguments.text("city");
    if (const auto date = arguments.text("date")) options.date = app::parseDate(*date);
    return options;
}

}  // namespace

std::variant<PanelOptions, terminal::HelpText, terminal::VersionRequest> readCommandLine(
    const std::vector<std::string>& arguments) {
    if (arguments.empty()) return PanelOptions{};  // as the desktop starts it
    const terminal::Command command = panelCommand();
    terminal::ParsedLine line = terminal::parseCommandLine(panelProgram(), {}, command, arguments,
                                                           terminal::terminalColumns(processEnvironment()));
    if (auto* help = std::get_if<terminal::HelpText>(&line)) return std::move(*help);
    if (std::holds_alternative<terminal::VersionRequest>(line)) return terminal::VersionRequest{};
    const Arguments& given = std::get<terminal::Invocation>(line).arguments;
    return PanelOptions{given.text("lang"), screenshotOf(given)};
}

}  // namespace quode::host
