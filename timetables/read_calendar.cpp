// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <chrono>
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

using std::chrono::sys_seconds;

// When an event begins, by the clock of the place.
sys_seconds localStart(const ListedEvent& event, const ZoneClock& clock) {
    using namespace std::chrono;
    const year_month_day date{year(event.year), month(unsigned(event.month)), day(unsigned(event.day))};
    if (!date.ok()) throw ImportError(_("An event of the calendar has no date."));
    const sys_seconds start = sys_days(date) + hours(event.hour) + minutes(event.minute);
    return event.isUtc ? start + seconds(clock.offsetAt(start)) : start;
}

// The day of a prayer, for a night prayer after midnight that of the evening before.
std::chrono::sys_days dayOfPrayer(Column column, sys_seconds start) {
    constexpr std::chrono::hours longestNight{4};
    return std::chrono::floor<std::chrono::days>(column == Column::isha ? start - longestNight : start);
}

std::string dateText(std::chrono::sys_days day) {
    const std::chrono::year_month_day date(day);
    return fmt::format("{:04}-{:02}-{:02}", int(date.year()), unsigned(date.month()), unsigned(date.day()));
}

std::string clockText(sys_seconds start) {
    const std::chrono::hh_mm_ss time(start - std::chrono::floor<std::chrono::days>(start));
    return fmt::format("{:02}:{:02}", time.hours().count(), time.minutes().count());
}

}  // namespace

RawTable readCalendar(std::string_view content, const ZoneClock& clock) {
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
        const sys_seconds start = localStart(event, clock);
        if (!places.contains(*column)) {
            places[*column] = table.headings.size();
            table.headings.push_back(nameOf(*column) == "asr (Hanafi)" ? "asr hanafi" : nameOf(*column));
        }
        RawRow& row = days[dateText(dayOfPrayer(*column, start))];
        if (row.line == 0) row.line = number;
        row.cells.resize(std::max(row.cells.size(), places[*column] + 1));
        std::string& cell = row.cells[places[*column]];
        const std::string time = clockText(start);
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
