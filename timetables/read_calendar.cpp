// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <libical/ical.h>

#include <fmt/format.h>

#include <map>
#include <memory>
#include <optional>

#include "texts/translation.h"
#include "timetables/RawTable.h"
#include "timetables/columns.h"

namespace quode::timetables {
namespace {

struct Release {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};

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
    icalerror_set_errors_are_fatal(0);
    const std::unique_ptr<icalcomponent, Release> calendar(icalparser_parse_string(std::string(content).c_str()));
    if (!calendar) throw ImportError(_("The calendar file is damaged: it has no readable VCALENDAR."));
    if (icalcomponent_count_errors(calendar.get()) > 0) {
        throw ImportError(_("The calendar file is damaged: it has lines that are no iCalendar. Export it again."));
    }
    RawTable table{"iCalendar", {"date"}, {}};
    std::map<std::string, RawRow> days;
    std::map<Column, std::size_t> places;
    int number = 0;
    for (auto* event = icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT); event != nullptr;
         event = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT)) {
        ++number;
        const char* title = icalcomponent_get_summary(event);
        const auto column = prayerIn(title == nullptr ? "" : title);
        if (!column || *column > Column::sabah) continue;
        const icaltimetype start = icalcomponent_get_dtstart(event);
        if (icaltime_is_null_time(start) || icaltime_is_date(start)) {
            throw ImportError(_("Event {} of the calendar has no time.", number));
        }
        if (icaltime_is_utc(start)) {
            throw ImportError(_("The calendar gives universal times. Export it with the local times of the place."));
        }
        if (!places.contains(*column)) {
            places[*column] = table.headings.size();
            table.headings.push_back(nameOf(*column) == "asr (Hanafi)" ? "asr hanafi" : nameOf(*column));
        }
        RawRow& row = days[fmt::format("{:04}-{:02}-{:02}", start.year, start.month, start.day)];
        if (row.line == 0) row.line = number;
        row.cells.resize(std::max(row.cells.size(), places[*column] + 1));
        std::string& cell = row.cells[places[*column]];
        const std::string time = fmt::format("{:02}:{:02}", start.hour, start.minute);
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
