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

/// Why calendars cannot be read or written on this machine, as a message for the user; nothing when they can. While there is
/// a problem, `eventText` and `readEvent` must not be called.
std::optional<std::string> problemOfCalendars();

/// Why an event cannot be written, as a message for the user; nothing when it can.
std::optional<std::string> problemOfEvent(const CalendarEvent& event);

/// The text of a calendar without events.
std::string emptyCalendar();

/// The VEVENT of an event, with its VALARM.
/// @param oldText  the VEVENT that it replaces, or empty; data of other programs are copied from it unchanged
/// @param now      written as the time of the change
std::string eventText(const CalendarEvent& event, std::string_view oldText, std::chrono::sys_seconds now);

/// An event, or the error in its text.
struct ReadEvent {
    std::optional<CalendarEvent> event;
    std::string problem;
};

/// Reads an event from a VEVENT of the calendar. Times without a zone are the device's local times.
ReadEvent readEvent(const CalendarText& calendar, const CalendarComponent& component);

}  // namespace quode
