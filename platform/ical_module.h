// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What needs libical, and stands in the module "quode-ical.so" for that.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "platform/EventStore.h"
#include "platform/ical_component.h"

namespace quode {

struct IcalModule {
    /// As the function of this name in "platform/ical_component.h".
    std::string (*eventText)(const CalendarEvent& event, std::string_view oldText, std::chrono::sys_seconds now);

    /// Reads the text of a VEVENT, given that of the VTIMEZONEs which it names. The problem is in English.
    ReadEvent (*readEvent)(std::string_view event, std::string_view zones);
};

/// The name under which the module gives its functions.
inline constexpr const char* icalSymbol = "quodeIcal";

}  // namespace quode
