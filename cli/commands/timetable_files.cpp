// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/commands/timetable_files.h"

#include <algorithm>
#include <array>

#include "app/timetable_file.h"
#include "cli/arguments.h"
#include "common/printable.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

using Kind = Parameter::Kind;

constexpr std::array<const char*, 3> fileFormats{"pdf", "html", "ics"};

TimetableFormat formatOf(const std::string& name) {
    return name == "pdf" ? TimetableFormat::pdf : name == "html" ? TimetableFormat::html : TimetableFormat::ics;
}

printing::PdfOptions pdfOptions(const Arguments& arguments) {
    printing::PdfOptions options;
    if (arguments.text("paper") == "letter") options.paper = printing::Paper::letter;
    options.isSheet = arguments.has("sheet");
    return options;
}

/// Options without a meaning in the chosen format are refused: a page must not silently lack what was requested.
void refuseOthers(const Arguments& arguments, const std::string& format) {
    constexpr std::array<std::pair<const char*, const char*>, 3> homes{
        {{"paper", "pdf"}, {"sheet", "pdf"}, {"alarm", "ics"}}};
    for (const auto& [option, home] : homes) {
        if (arguments.has(option) && format != home) {
            throw Failure(ExitCode::usage, _("--{0} belongs to --format {1}.", option, home));
        }
    }
}

}  // namespace

std::vector<Parameter> fileParameters() {
    Parameter format{Kind::option, "format", "FORMAT", _("table (the default), csv, json, pdf, html or ics")};
    format.choices = {"table", "csv", "json", "pdf", "html", "ics"};
    Parameter paper{Kind::option, "paper", "SIZE", _("The paper of a PDF: a4 (the default) or letter")};
    paper.choices = {"a4", "letter"};
    return {format,
            {Kind::option, "output", "FILE", _("Write it to a file; not the table")},
            paper,
            {Kind::option, "alarm", "MINUTES", _("In a calendar, a reminder before each prayer")},
            {Kind::toggle, "night", "", _("Also the thirds of the night and midnight")}};
}

bool isFileFormat(const std::string& format) {
    return std::ranges::find(fileFormats, format) != fileFormats.end();
}

void writeText(Console& console, const Arguments& arguments, const std::string& text) {
    const std::optional<std::string> file = arguments.text("output");
    if (!file) return console.write(text);
    writeFile(*file, text);
    console.print(_("Written: {}", printable(*file)));
}

void writeTimetable(Console& console, const Arguments& arguments, const PrintRequest& request) {
    const std::string format = arguments.text("format").value_or("table");
    refuseOthers(arguments, format);
    if (format == "pdf" && !arguments.has("output") && console.drawsOnTerminal()) {
        throw Failure(ExitCode::usage, _("A PDF cannot be shown in a terminal. Name a file: --output times.pdf"));
    }
    const TimetableFormat wanted = formatOf(format);
    const auto alarm = wanted == TimetableFormat::ics ? alarmMinutes(arguments) : std::nullopt;
    writeText(console, arguments, timetableFile(console.session(), request, wanted, pdfOptions(arguments), alarm));
}

}  // namespace quode::cli
