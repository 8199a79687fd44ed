// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <map>
#include <optional>

#include "platform/ical_module.h"
#include "texts/translation.h"
#include "timetables/RawTable.h"
#include "timetables/columns.h"

namespace quode::timetables {
namespace {

/// The prayer in a title such as "Fajr (Istanbul)".
std::optional<Column> prayerIn(const std::string& title) {
    if (const auto whole = columnOf(title)) return whole;
    const std::string plain = plainText(title);
    std::size_t begin = 0;
    while (begin < plain.size()) {
        const std::size_t end = std::min(plain.find(' ', begin), plain.size());
        const auto column = columnOf(plain.substr(begin, end - begin));
        if (column && *column <= Column::sabah) return column;
        begin = end + 1;
    }
    return std::nullopt;
}

}  // namespace

RawTable readCalendar(std::string_view content) {
    if (auto problem = problemOfCalendars()) throw ImportError(*problem);
    const ListedCalendar calendar = icalModule()->listEvents(content);
    if (!calendar.isCalendar) throw ImportError(_("The calendar file is damaged: it has no readable VCALENDAR."));
    if (!calendar.isWhole) {
        throw ImportError(_("The calendar file is damaged: it has lines that are no iCalendar. Export it again."));
    }
    RawTable table{"iCalendar", {"date"}, {}};
    std::map<std::string, RawRow> days;
    std::map<Column, std::size_t> places;
    int number = 0;
    for (const ListedEvent& event : calendar.events) {
        ++number;
        const auto column = prayerIn(event.title);
        if (!column || *column > Column::sabah) continue;
        if (!event.hasTime) throw ImportError(_("Event {} of the calendar has no time.", number));
        if (event.isUtc) {
            throw ImportError(_("The calendar gives universal times. Export it with the local times of the place."));
        }
        if (!places.contains(*column)) {
            places[*column] = table.headings.size();
            table.headings.push_back(nameOf(*column) == "asr (Hanafi)" ? "asr hanafi" : nameOf(*column));
        }
        RawRow& row = days[fmt::format("{:04}-{:02}-{:02}", event.year, event.month, event.day)];
        if (row.line == 0) row.line = number;
        row.cells.resize(std::max(row.cells.size(), places[*column] + 1));
        std::string& cell = row.cells[places[*column]];
        const std::string time = fmt::format("{:02}:{:02}", event.hour, event.minute);
        cell = cell.empty() || cell == time ? time : "twice: " + cell + ", " + time;
    }
    if (days.empty()) throw ImportError(_("The calendar names no prayers in the titles of its events."));
    for (auto& [date, row] : days) {
        row.cells.resize(table.headings.size());
        row.cells[0] = date;
        table.rows.push_back(std::move(row));
    }
    return table;
}

}  // namespace quode::timetables
