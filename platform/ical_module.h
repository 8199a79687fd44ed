// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The functions that need libical, in the module "quode-ical.so".
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "platform/EventStore.h"
#include "platform/ical_component.h"

namespace quode {

/// The functions of the module.
struct IcalModule {
    /// See "platform/ical_component.h".
    std::string (*eventText)(const CalendarEvent& event, std::string_view oldText, std::chrono::sys_seconds now);

    /// Reads the text of a VEVENT, with the text of the VTIMEZONEs that it refers to. The problem is in English.
    ReadEvent (*readEvent)(std::string_view event, std::string_view zones);
};

/// The symbol of the module's functions.
inline constexpr const char* icalSymbol = "quodeIcal";

}  // namespace quode
