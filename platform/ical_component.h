// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// One calendar event as the text of a VEVENT component (RFC 5545, section 3.6.1), and back.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/EventStore.h"
#include "platform/ical_text.h"

namespace quode {

/// Why no calendar can be read or written here, as a message for the user; no value: they can. While there is a problem, `eventText`
/// and `readEvent` must not be called.
std::optional<std::string> problemOfCalendars();

/// Why the event cannot be written, as a message for the user; no value: it can.
std::optional<std::string> problemOfEvent(const CalendarEvent& event);

/// The text of a calendar that holds nothing yet.
std::string emptyCalendar();

/// The VEVENT of `event`, with its VALARM. `oldText` is the VEVENT that it replaces, or empty: what other programs
/// wrote into that one is taken over as it stands. `now` is noted as the time of the change.
std::string eventText(const CalendarEvent& event, std::string_view oldText, std::chrono::sys_seconds now);

/// An event, or what is wrong with its text.
struct ReadEvent {
    std::optional<CalendarEvent> event;
    std::string problem;
};

/// The event that `component`, a VEVENT of the calendar, describes. Times without a zone are the device's local times.
ReadEvent readEvent(const CalendarText& calendar, const CalendarComponent& component);

}  // namespace quode
