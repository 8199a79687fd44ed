// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The text of an iCalendar file, parsed by lines only as far as needed to replace one event.
// Every byte outside the replaced event stays the same, whatever program wrote it.
// The format: RFC 5545, section 3.1 (content lines and their folding) and 3.4 to 3.6 (objects and components).
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quode {

/// One content line with its continuation lines.
struct ContentLine {
    std::size_t begin = 0;  ///< offset in the text
    std::size_t end = 0;    ///< offset after its line break
    std::string name;       ///< in capitals, without parameters
    std::string value;      ///< as written, unfolded
};

/// Calls `use` with each content line in order, without blank lines.
void forEachContentLine(std::string_view text, const std::function<void(const ContentLine&)>& use);

/// The name of the component in a BEGIN or END line, in capitals.
std::string componentName(const ContentLine& line);

/// The value of a TEXT property without its backslashes (RFC 5545, section 3.3.11).
std::string unescapedText(std::string_view value);

/// One component directly below a VCALENDAR, such as a VEVENT.
struct CalendarComponent {
    std::string name;  ///< in capitals
    std::string uid;   ///< empty when missing
    bool isRecurrenceOverride = false;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t calendar = 0;  ///< index of the VCALENDAR around it
};

/// A text of one or more VCALENDARs with its components.
struct CalendarText {
    std::string text;
    std::vector<CalendarComponent> components;
    std::vector<std::size_t> calendarEnds;  ///< offsets of the lines END:VCALENDAR
};

/// A calendar, or the error in the text.
struct ScannedCalendar {
    std::optional<CalendarText> calendar;
    std::string problem;
};

/// Finds the components of a text of one or more VCALENDARs. A text that is truncated, wrongly nested or not a calendar has
/// a problem; unknown lines inside a component are accepted.
ScannedCalendar scanCalendar(std::string text);

/// The components of the event with an identifier: one, or several when single recurrences differ.
std::vector<CalendarComponent> eventParts(const CalendarText& calendar, std::string_view identifier);

/// The calendar's text with a new text for the event with an identifier; without such an event it is added at the end of the
/// first VCALENDAR. An empty `eventText` removes the event.
std::string withEventText(const CalendarText& calendar, std::string_view identifier, std::string_view eventText);

/// The text of a component.
std::string_view textOf(const CalendarText& calendar, const CalendarComponent& component);

/// The text of the time zones that a VCALENDAR defines for the times of its events.
std::string zonesOf(const CalendarText& calendar, std::size_t index);

}  // namespace quode
