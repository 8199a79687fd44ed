// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/timetable_file.h"

#include <algorithm>

#include "app/failure.h"
#include "app/session.h"
#include "platform/atomic_file.h"
#include "printing/html.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

std::string calendarFile(Session& session, const PrintRequest& request, std::optional<std::chrono::minutes> alarm) {
    std::vector<VAKDate> days;
    for (const Month& month : request.months) {
        for (const VAKDate& date : daysOf(month)) days.push_back(date);
    }
    if (std::ranges::any_of(days, isJulianCalendar)) {
        throw Failure(ExitCode::usage, _("A calendar holds days from 15 October 1582 on. Choose a later month."));
    }
    return printedCalendar(prayerCalendar(session, request.place, days, alarm));
}

}  // namespace

std::string timetableFile(Session& session, const PrintRequest& request, TimetableFormat format,
                          const printing::PdfOptions& pdf, std::optional<std::chrono::minutes> alarm) {
    if (format == TimetableFormat::ics) return calendarFile(session, request, alarm);
    const printing::Timetable timetable = printedTimes(session, request);
    return format == TimetableFormat::pdf ? printedPdf(timetable, pdf) : printing::htmlOf(timetable);
}

void writeFile(const std::filesystem::path& file, std::string_view bytes) {
    const std::filesystem::path path = std::filesystem::absolute(file);
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw Failure(ExitCode::usage, _("{} is a folder. Name a file.", file.string()));
    }
    const bool isReplaced = !std::filesystem::exists(path, error) || std::filesystem::is_regular_file(path, error);
    const FileOutcome outcome = isReplaced ? replaceFile(*systemFileCalls(), path, bytes) : writeInto(path, bytes);
    if (!outcome.ok) throw Failure(ExitCode::outputFailed, outcome.message);
}

}  // namespace quode::app
