// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Timetables that leave the program: pages to hang up, and calendars.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/dates.h"
#include "app/place.h"
#include "printing/Timetable.h"
#include "printing/calendar.h"
#include "printing/pdf.h"

namespace quode::app {

class Session;

struct PrintRequest {
    ChosenPlace place;
    std::vector<Month> months;
    bool allTimes = false;   ///< all nine times, not only the six main ones
    bool withNight = false;  ///< the thirds of the night and midnight
    bool isSheet = false;    ///< for one page: the marks of all months are explained together
};

/// The timetable of these months, with a column for the congregation where its times are known. For `htmlOf` and
/// `printedPdf`.
printing::Timetable printedTimes(Session& session, const PrintRequest& request);

/// The bytes of a PDF file. Its module is loaded at the first use. Throws `Failure`: damagedData when that is
/// missing, internalError when it fails.
std::string printedPdf(const printing::Timetable& timetable, const printing::PdfOptions& options);

/// A page of that file, counted from 0, as a picture so many pixels wide; the same holds for it.
printing::Picture printedPage(const printing::Timetable& timetable, const printing::PdfOptions& options,
                              std::size_t page, int width);

/// The text of an iCalendar file; the same holds for it.
std::string printedCalendar(const printing::PrayerCalendar& calendar);

/// An event for each of the five prayers and sunrise on these days.
/// @param alarm  a reminder so many minutes before each
printing::PrayerCalendar prayerCalendar(Session& session, const ChosenPlace& place, const std::vector<VAKDate>& days,
                                        std::optional<std::chrono::minutes> alarm);

/// The Hijri months that some days meet, such as "Dhu al-Hijjah 1447 / Muharram 1448"; empty outside the table.
std::string hijriMonths(Session& session, const std::vector<VAKDate>& days);

}  // namespace quode::app
