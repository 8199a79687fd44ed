// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/commands/timetable_files.h"

#include <algorithm>
#include <array>

#include "app/session.h"
#include "cli/minutes.h"
#include "platform/atomic_file.h"
#include "printing/html.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

using Kind = Parameter::Kind;

constexpr std::array<const char*, 3> fileFormats{"pdf", "html", "ics"};

std::string pdfText(Session& session, const Arguments& arguments, const PrintRequest& request) {
    printing::PdfOptions options;
    if (arguments.text("paper") == "letter") options.paper = printing::Paper::letter;
    options.isSheet = arguments.has("sheet");
    return printModule().pdf(printedTimes(session, request), options);
}

std::string calendarText(Session& session, const Arguments& arguments, const PrintRequest& request) {
    std::vector<VAKDate> days;
    for (const Month& month : request.months) {
        for (const VAKDate& date : daysOf(month)) days.push_back(date);
    }
    if (std::ranges::any_of(days, isJulianCalendar)) {
        throw Failure(ExitCode::usage, _("A calendar holds days from 15 October 1582 on. Choose a later month."));
    }
    return printing::calendarText(prayerCalendar(session, request.place, days, alarmMinutes(arguments)));
}

/// Options that mean nothing in the chosen format are refused: nobody should print a page and miss what was asked for.
void refuseOthers(const Arguments& arguments, const std::string& format) {
    constexpr std::array<std::pair<const char*, const char*>, 3> homes{
        {{"paper", "pdf"}, {"sheet", "pdf"}, {"alarm", "ics"}}};
    for (const auto& [option, home] : homes) {
        if (arguments.has(option) && format != home) {
            throw Failure(ExitCode::usage, _("--{0} belongs to --format {1}.", option, home));
        }
    }
}

void writeTo(const std::string& file, std::string_view text) {
    const std::filesystem::path path = std::filesystem::absolute(file);
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw Failure(ExitCode::usage, _("{} is a folder. Name a file.", file));
    }
    const FileOutcome outcome = replaceFile(*systemFileCalls(), path, text);
    if (!outcome.ok) throw Failure(ExitCode::outputFailed, outcome.message);
}

}  // namespace

std::vector<Parameter> fileParameters() {
    Parameter format{Kind::option, "format", "FORMAT", _("table (the default), csv, json, pdf, html or ics")};
    format.choices = {"table", "csv", "json", "pdf", "html", "ics"};
    Parameter paper{Kind::option, "paper", "SIZE", _("The paper of a PDF: a4 (the default) or letter")};
    paper.choices = {"a4", "letter"};
    return {format,
            {Kind::option, "output", "FILE", _("Write PDF, HTML or iCalendar to a file")},
            paper,
            {Kind::option, "alarm", "MINUTES", _("In a calendar, a reminder before each prayer")},
            {Kind::toggle, "night", "", _("Also the thirds of the night and midnight")}};
}

bool isFileFormat(const std::string& format) {
    return std::ranges::find(fileFormats, format) != fileFormats.end();
}

void writeTimetable(Session& session, const Arguments& arguments, const PrintRequest& request) {
    const std::string format = arguments.text("format").value_or("table");
    const std::optional<std::string> file = arguments.text("output");
    refuseOthers(arguments, format);
    if (format == "pdf" && !file && session.drawsOnTerminal()) {
        throw Failure(ExitCode::usage, _("A PDF is nothing for a terminal. Name a file: --output times.pdf"));
    }
    const std::string text = format == "pdf"    ? pdfText(session, arguments, request)
                             : format == "html" ? printing::htmlOf(printedTimes(session, request))
                                                : calendarText(session, arguments, request);
    if (!file) return session.write(text);
    writeTo(*file, text);
    session.print(_("Written: {}", *file));
}

}  // namespace quode::cli
