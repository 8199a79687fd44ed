// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The module "quode-publish.so".
#include <exception>

#include "printing/calendar.h"

using namespace quode::printing;

extern "C" void quodePrintCalendar(PrintedFile& file, const PrayerCalendar& calendar) noexcept;

void quodePrintCalendar(PrintedFile& file, const PrayerCalendar& calendar) noexcept {
    try {
        file.bytes = calendarText(calendar);
    } catch (const std::exception& error) {
        file.problem = error.what();
    }
}
