// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quode::printing {

/// One prayer of a day.
struct PrayerEvent {
    std::string uid;                 ///< the same for the same prayer, day and place, whatever its time
    std::chrono::sys_seconds begin;  ///< the instant of the shown minute
    std::string title;
    std::string description;
};

/// A calendar of prayers.
struct PrayerCalendar {
    std::string name;
    std::string zone;   ///< the IANA name of the place's time zone
    std::string place;  ///< "Istanbul, Türkiye"
    double latitude = 0.0;
    double longitude = 0.0;
    std::chrono::sys_seconds made;               ///< when the times were computed
    std::optional<std::chrono::minutes> alarm;   ///< a reminder so long before each prayer
    std::optional<std::chrono::hours> interval;  ///< how often a subscriber should look for a newer file
    std::vector<PrayerEvent> events;
};

/// The text of an iCalendar file (RFC 5545, 7986). The events begin at instants in universal time: a prayer is one, and
/// whatever becomes of the clock of a country, or is known of it to the reader's program, it stays right. `zone` is
/// what the calendar proposes to show them in.
std::string calendarText(const PrayerCalendar& calendar);

/// Whether a text is such a file, whatever it holds.
bool isPrayerCalendar(std::string_view text);

}  // namespace quode::printing
