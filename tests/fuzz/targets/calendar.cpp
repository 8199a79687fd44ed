// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A calendar file of any program: scanned, its events read, one replaced.
#include "fuzz/target.h"
#include "platform/ical_component.h"
#include "platform/ical_text.h"

namespace quode::fuzz {
namespace {

void consumeCalendar(std::string_view bytes) {
    const ScannedCalendar scanned = scanCalendar(std::string(bytes));
    if (!scanned.calendar) return;
    for (const CalendarComponent& component : scanned.calendar->components) {
        if (component.name == "VEVENT") readEvent(*scanned.calendar, component);
        withEventText(*scanned.calendar, component.uid, "BEGIN:VEVENT\r\nEND:VEVENT\r\n");
    }
}

const Target ofCalendar("calendar", consumeCalendar);

}  // namespace
}  // namespace quode::fuzz
