// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The text of an iCalendar file, taken apart by lines only as far as needed to exchange one event for another.
// Every byte that is not part of the exchanged event stays as it was, whatever program wrote it.
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
    std::size_t begin = 0;  ///< of the line in the text
    std::size_t end = 0;    ///< past its line break
    std::string name;       ///< in capitals, without parameters
    std::string value;      ///< as written, unfolded
};

/// Calls `use` with each content line in turn, blank lines left out.
void forEachContentLine(std::string_view text, const std::function<void(const ContentLine&)>& use);

/// The name of the component that a BEGIN or END line is about, in capitals.
std::string componentName(const ContentLine& line);

/// The value of a TEXT property without its backslashes (RFC 5545, section 3.3.11).
std::string unescapedText(std::string_view value);

/// One component directly below a VCALENDAR, such as a VEVENT.
struct CalendarComponent {
    std::string name;  ///< in capitals
    std::string uid;   ///< empty when it has none
    bool isRecurrenceOverride = false;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t calendar = 0;  ///< index of the VCALENDAR around it
};

struct CalendarText {
    std::string text;
    std::vector<CalendarComponent> components;
    std::vector<std::size_t> calendarEnds;  ///< where the line END:VCALENDAR of each VCALENDAR begins
};

/// A calendar, or what is wrong with the text.
struct ScannedCalendar {
    std::optional<CalendarText> calendar;
    std::string problem;
};

/// Finds the components of a text of one or more VCALENDARs. A text that is cut off, wrongly nested, or no calendar
/// at all has a problem; lines that have no meaning inside a component do not matter.
ScannedCalendar scanCalendar(std::string text);

/// The components that make up the event of this identifier: one, or several when single recurrences differ.
std::vector<CalendarComponent> eventParts(const CalendarText& calendar, std::string_view identifier);

/// The calendar's text with `eventText` in the place of the event of this identifier; without such an event, at the
/// end of the first VCALENDAR. An empty `eventText` removes the event.
std::string withEventText(const CalendarText& calendar, std::string_view identifier, std::string_view eventText);

/// The text of the component.
std::string_view textOf(const CalendarText& calendar, const CalendarComponent& component);

/// The text of the time zones that a VCALENDAR defines, which the times of its events refer to.
std::string zonesOf(const CalendarText& calendar, std::size_t index);

}  // namespace quode
