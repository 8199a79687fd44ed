// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode calendar: one day in several calendars.
#include <fmt/format.h>

#include <array>
#include <string_view>

#include "app/crescent_date.h"
#include "app/dates.h"
#include "app/day_view.h"
#include "astro/FastAstro.h"
#include "cli/commands.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

/// The months of the Rumi calendar, the first being March.
std::string_view rumiMonth(int month) {
    constexpr std::array<std::string_view, 12> months{"Mart",        "Nisan",       "Mayıs",      "Haziran",
                                                      "Temmuz",      "Ağustos",     "Eylül",      "Teşrinievvel",
                                                      "Teşrinisani", "Kânunuevvel", "Kânunusani", "Şubat"};
    if (month < 1 || month > 12) return "";
    return months[static_cast<std::size_t>(month) - 1];
}

struct CalendarDay {
    VAKDate date;
    std::optional<VAKDate> byTable;
    std::optional<VAKDate> byCrescent;
    AllCalendarInfo info;
};

CalendarDay calendarDayOf(const VAKDate& date) {
    CalendarDay day{date, hijriByTable(date), hijriByCrescent(date), {}};
    FastAstro engine;
    engine.setLog([](std::string_view) {});  // the Hijri date of this record is not shown
    engine.ConvertAllCalendar(date, day.info);
    return day;
}

Json calendarJson(Session& session, const CalendarDay& day) {
    const AllCalendarInfo& info = day.info;
    Json rumi;
    if (info.RumiYear > 0) {
        rumi = object({{"year", info.RumiYear},
                       {"month", info.RumiMonth},
                       {"day", info.RumiDay},
                       {"month_name", rumiMonth(info.RumiMonth)}});
    }
    return object(
        {{"date", isoDate(day.date)},
         {"calendar", isJulianCalendar(day.date) ? "julian" : "gregorian"},
         {"weekday", weekdayOf(day.date)},
         {"hijri",
          Json(Json::Array{hijriJson(session, day.byTable, "table"), hijriJson(session, day.byCrescent, "crescent")})},
         {"rumi", rumi},
         {"season", object({{"half_year", info.isSummerSeason ? "summer" : "winter"}, {"day", info.DayOfSeason}})}});
}

void printCalendar(Console& console, const CalendarDay& day) {
    Session& session = console.session();
    const AllCalendarInfo& info = day.info;
    TextTable table({TextTable::Align::left, TextTable::Align::left});
    const auto add = [&table](std::string_view label, std::string value) {
        table.add({std::string(label), std::move(value)});
    };
    add(isJulianCalendar(day.date) ? _("Julian") : _("Gregorian"), longDate(session, day.date));
    add(_("Hijri, by the table"),
        day.byTable ? hijriText(session, *day.byTable) : std::string(_("outside the Hijri table")));
    if (day.byCrescent) add(_("Hijri, by the crescent"), hijriText(session, *day.byCrescent));
    if (info.RumiYear > 0) {
        add(_("Rumi"), fmt::format("{} {} {}", info.RumiDay, rumiMonth(info.RumiMonth), info.RumiYear));
    }
    add(_("Season"), info.isSummerSeason ? _("day {} of the summer half-year, from 6 May", info.DayOfSeason)
                                         : _("day {} of the winter half-year, from 8 November", info.DayOfSeason));
    console.print(table, 0);
}

void runCalendar(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const auto date = arguments.text("DATE");
    const CalendarDay day = calendarDayOf(
        date ? parseDate(*date) : today(session, siteOf(choosePlace(session, arguments.text("city")).city)));
    if (console.wantsJson()) {
        console.printJson(calendarJson(session, day));
    } else {
        printCalendar(console, day);
    }
}

}  // namespace

Command calendarCommand() {
    return {"calendar",
            _("A day in several calendars"),
            {{Parameter::Kind::word, "DATE", "", _("Another day than today, YYYY-MM-DD")}, cityParameter()},
            runCalendar};
}

}  // namespace quode::cli
