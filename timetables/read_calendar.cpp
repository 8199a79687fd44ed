// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <chrono>
#include <map>
#include <optional>

#include "common/civil_date.h"
#include "common/formatting.h"
#include "platform/ical_module.h"
#include "texts/translation.h"
#include "timetables/RawTable.h"
#include "timetables/columns.h"

namespace quode::timetables {
namespace {

bool isTime(std::optional<Column> column) {
    return column && *column <= Column::sabah;
}

/// Whether a title has the name of a prayer among other words, as "Fajr reminder" and "Lecture after Maghrib" have.
bool mentionsPrayer(const std::string& title) {
    const std::string plain = plainText(title);
    for (std::size_t begin = 0; begin < plain.size();) {
        const std::size_t end = std::min(plain.find(' ', begin), plain.size());
        if (isTime(columnOf(plain.substr(begin, end - begin)))) return true;
        begin = end + 1;
    }
    return false;
}

using std::chrono::sys_seconds;

// When an event begins, by the clock of the place. A start without a zone is by that clock already.
sys_seconds localStart(const ListedEvent& event, const ZoneClock& clock) {
    using namespace std::chrono;
    if (event.moment) return *event.moment + seconds(clock.offsetAt(*event.moment));
    const year_month_day date{year(event.year), month(unsigned(event.month)), day(unsigned(event.day))};
    if (!date.ok()) throw ImportError(_("An event of the calendar has no date."));
    return sys_days(date) + hours(event.hour) + minutes(event.minute) + seconds(event.second);
}

// The day of a prayer, for a night prayer after midnight that of the evening before.
std::chrono::sys_days dayOfPrayer(Column column, sys_seconds start) {
    constexpr std::chrono::hours longestNight{4};
    const bool isOfNight = column == Column::isha || column == Column::ishaIqama;
    return std::chrono::floor<std::chrono::days>(isOfNight ? start - longestNight : start);
}

std::string clockText(sys_seconds start) {
    const std::chrono::hh_mm_ss time(start - std::chrono::floor<std::chrono::days>(start));
    const auto second = time.seconds().count();
    return fmt::format("{:02}:{:02}", time.hours().count(), time.minutes().count()) +
           (second == 0 ? "" : fmt::format(":{:02}", second));
}

/// Why the time of an event that names a prayer cannot be used; nothing when it can.
std::optional<std::string> problemOf(const ListedEvent& event) {
    if (!isTime(columnOf(event.title))) {
        return _("the title \"{}\" says more than the name of a prayer, so that its time may be another one",
                 event.title);
    }
    if (event.repeats) return _("\"{}\" repeats. Export the calendar with an event for each day", event.title);
    if (!event.hasTime) return _("\"{}\" has no time", event.title);
    if (!event.zone.empty() && !event.moment) return _("the time zone \"{}\" is unknown", event.zone);
    return std::nullopt;
}

/// The events of a calendar as rows of days.
class Days {
  public:
    explicit Days(const ZoneClock& clock) : clock_(clock) {}

    /// @param number  of the event in the calendar
    void add(int number, const ListedEvent& event, Column column) {
        const sys_seconds start = localStart(event, clock_);
        if (!places_.contains(column)) {
            places_[column] = table_.headings.size();
            table_.headings.push_back(headingOf(column));
        }
        const std::size_t place = places_[column];
        RawRow& row = rows_[isoDate(dayOfPrayer(column, start))];
        if (row.line == 0) row.line = number;
        row.cells.resize(std::max(row.cells.size(), place + 1));
        std::string& cell = row.cells[place];
        const std::string time = clockText(start);
        cell = cell.empty() || cell == time ? time : "twice: " + cell + ", " + time;
    }

    void addProblem(int number, const std::string& text) { table_.problems.push_back({number, text}); }

    RawTable table() {
        if (rows_.empty() && !table_.problems.empty()) {
            const ImportProblem& first = table_.problems.front();
            throw ImportError(_("The calendar has no times that can be used. Event {}: {}.", first.line, first.text));
        }
        if (rows_.empty()) throw ImportError(_("The calendar names no prayers in the titles of its events."));
        for (auto& [date, row] : rows_) {
            row.cells.resize(table_.headings.size());
            row.cells[0] = date;
            table_.rows.push_back(std::move(row));
        }
        return std::move(table_);
    }

  private:
    const ZoneClock& clock_;
    RawTable table_{"iCalendar", {"date"}, {}, {}, RowUnit::event};
    std::map<std::string, RawRow> rows_;
    std::map<Column, std::size_t> places_;
};

}  // namespace

RawTable readCalendar(std::string_view content, const ZoneClock& clock) {
    if (auto problem = problemOfCalendars()) throw ImportError(*problem);
    const ListedCalendar calendar = icalModule()->listEvents(content);
    if (!calendar.isCalendar) throw ImportError(_("The calendar file is damaged: it has no readable VCALENDAR."));
    if (!calendar.isWhole) {
        throw ImportError(_("The calendar file is damaged: it has lines that are no iCalendar. Export it again."));
    }
    Days days(clock);
    int number = 0;
    for (const ListedEvent& event : calendar.events) {
        ++number;
        const auto column = columnOf(event.title);
        if (event.isCancelled || (!isTime(column) && !mentionsPrayer(event.title))) continue;
        if (const auto problem = problemOf(event)) {
            days.addProblem(number, *problem);
        } else {
            days.add(number, event, *column);
        }
    }
    return days.table();
}

}  // namespace quode::timetables
