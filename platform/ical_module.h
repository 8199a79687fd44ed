// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The functions that need libical, in the module "quode-ical.so".
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/EventStore.h"
#include "platform/ical_component.h"

namespace quode {

/// An event of any calendar, as its line DTSTART gives it.
struct ListedEvent {
    std::string title;
    bool hasTime = false;  ///< false without a start, and for one that is a date alone
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    std::string zone;                                ///< that the start names (TZID)
    std::optional<std::chrono::sys_seconds> moment;  ///< of the start, when it is universal or its zone is known
    bool isCancelled = false;
    bool repeats = false;  ///< by a rule or a list of dates
};

struct ListedCalendar {
    bool isCalendar = false;  ///< the text is a VCALENDAR
    bool isWhole = false;     ///< every line of it is understood
    std::vector<ListedEvent> events;
};

/// The functions of the module.
struct IcalModule {
    /// See "platform/ical_component.h".
    std::string (*eventText)(const CalendarEvent& event, std::string_view oldText, std::chrono::sys_seconds now);

    /// Reads the text of a VEVENT, with the text of the VTIMEZONEs that it refers to. The problem is in English.
    ReadEvent (*readEvent)(std::string_view event, std::string_view zones);

    /// The events of a whole calendar, in their order.
    ListedCalendar (*listEvents)(std::string_view calendar);
};

/// The loaded module; null when it cannot be loaded, see `problemOfCalendars`.
const IcalModule* icalModule();

/// The symbol of the module's functions.
inline constexpr const char* icalSymbol = "quodeIcal";

}  // namespace quode
