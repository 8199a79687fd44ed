// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode month and quode year: timetables.
#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "app/dates.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/printed_times.h"
#include "app/time_notes.h"
#include "cli/commands.h"
#include "cli/commands/timetable_files.h"
#include "cli/day_csv.h"
#include "cli/method_arguments.h"
#include "cli/page_parts.h"
#include "common/formatting.h"
#include "data/city_days.h"
#include "data/iqama.h"
#include "data/night_parts.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

struct Timetable {
    ChosenPlace place;
    Site site;
    VAKDate today;
    std::vector<Month> months;
    std::vector<ZoneDisagreement> warnings;
    int lastCode = lastMainPrayer;  ///< the last prayer that has a column in the table
    bool withNight = false;         ///< the thirds of the night and midnight
};

Timetable timetableOf(Session& session, const Arguments& arguments, std::vector<Month> months) {
    Timetable table;
    table.place = choosePlace(session, arguments.text("city"));
    useMethod(session, arguments, table.place);
    table.site = siteOf(table.place.city);
    table.today = today(session, table.site);
    table.months = std::move(months);
    if (arguments.has("all")) table.lastCode = lastPrayer;
    table.withNight = arguments.has("night");
    return table;
}

void addWarnings(Session& session, Timetable& table) {
    const VAKDate first = daysOf(table.months.front()).front(), last = daysOf(table.months.back()).back();
    table.warnings = zoneProblems(session, table.place.city, table.today, first, last);
}

std::vector<CityDay> computedDays(const Timetable& table, const std::vector<VAKDate>& dates) {
    std::vector<CityDay> days(dates.size());
    computeDayTimes(table.site, dates, days);
    return days;
}

// --- text

/// What is explained below a table.
struct TableNotes {
    ZoneClock clock;
    Footnotes earlierDay = {};
    // The latitudes for which times were computed where the Sun does not rise and set.
    std::optional<double> lowest = {}, highest = {};
    std::vector<std::string> missing = {};  // why there are no times
    bool hasIqama = false;

    void addMissing(const std::string& note) {
        if (!note.empty() && std::ranges::find(missing, note) == missing.end()) missing.push_back(note);
    }

    void addLatitude(double latitude) {
        lowest = std::min(latitude, lowest.value_or(latitude));
        highest = std::max(latitude, highest.value_or(latitude));
    }
};

void printMonthHead(Console& console, const Month& month, const std::vector<VAKDate>& days) {
    Session& session = console.session();
    const std::string name = fmt::format("{} {}", session.monthName(month.month), month.year);
    const std::string hijri = hijriMonths(session, days);
    const std::string remark = hijri.empty() ? std::string(_("outside the Hijri table"))
                                             : fmt::format("{} ({})", hijri, _("Hijri, by the table"));
    console.print(console.style().strong(name) + "  " + console.style().dim(remark));
    console.print();
}

/// The prayers that have a column.
struct Columns {
    int first = firstPrayer;
    int last = lastPrayer;
    bool withNight = false;
};

std::vector<std::string> rowOf(Session& session, const CityDay& day, Columns prayers, TableNotes& notes) {
    const std::optional<VAKDate> hijri = hijriByTable(day.date);
    std::vector<std::string> row{
        session.shortWeekdayName(weekdayOf(day.date)) + ' ' + padLeft(std::to_string(day.date.Days), 2),
        hijri ? std::to_string(hijri->Days) : "", ""};
    if (const auto latitude = computedLatitude(day.times)) {
        row.back() = "*";
        notes.addLatitude(*latitude);
    }
    for (int code = prayers.first; code <= prayers.last; ++code) {
        const std::optional<int> iqama = iqamaMinute(day, code);
        if (iqama) notes.hasIqama = true;
        row.push_back(clockText(session, timeOfPrayer(day, code)) +
                      (iqama ? "/" + clockText(session, std::chrono::minutes(*iqama)) : "") +
                      notes.earlierDay.earlierDayMark(day.times, code) + notes.earlierDay.sourceMark(day, code) +
                      notes.earlierDay.clockMark(session, notes.clock, day, code));
        notes.addMissing(missingPrayerNote(session, day, code));
    }
    if (!prayers.withNight) return row;
    for (const NightPartName& part : nightPartNames) row.push_back(clockText(session, nightHours(day, part.hours)));
    return row;
}

// Marks make some cells wider; the digits shall stay below each other.
void alignMarks(std::vector<std::vector<std::string>>& rows, std::size_t firstColumn) {
    const auto isMarked = [](const std::string& cell) {
        return std::ranges::any_of(std::array{"¹", "²", "³", "⁴", "⁵", "⁶"},
                                   [&](const char* mark) { return cell.ends_with(mark); });
    };
    for (std::size_t column = firstColumn; column < rows.front().size(); ++column) {
        const auto isCellMarked = [&](const auto& row) { return isMarked(row[column]); };
        if (std::none_of(rows.begin(), rows.end(), isCellMarked)) continue;
        for (auto& row : rows) {
            if (!isMarked(row[column])) row[column] += ' ';
        }
    }
}

/// The head of the columns, and a line for each day.
std::vector<std::string> linesOf(Session& session, const std::vector<CityDay>& days, Columns prayers,
                                 TableNotes& notes) {
    using Align = TextTable::Align;
    constexpr std::size_t dateColumns = 3;
    std::vector<Align> columns{Align::right, Align::right, Align::left};
    std::vector<std::string> head{"", "", ""};
    for (int code = prayers.first; code <= prayers.last; ++code) {
        columns.push_back(Align::right);
        head.push_back(session.prayerName(code));
    }
    for (const NightPartName& part : nightPartNames) {
        if (!prayers.withNight) break;
        columns.push_back(Align::right);
        head.push_back(nightPartLabel(part));
    }
    std::vector<std::vector<std::string>> rows;
    for (const CityDay& day : days) rows.push_back(rowOf(session, day, prayers, notes));
    alignMarks(rows, dateColumns);
    TextTable text(columns);
    text.add(head);
    for (auto& row : rows) text.add(std::move(row));
    return text.lines(unlimitedWidth);
}

void printLines(Console& console, const Timetable& table, const std::vector<CityDay>& days,
                const std::vector<std::string>& lines) {
    console.print(console.style().dim(lines.front()));
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const bool isToday = sameDay(days[i - 1].date, table.today);
        console.print(isToday ? console.style().strong(lines[i]) : lines[i]);
    }
    console.print();
}

bool canBeSplit(Columns columns) {
    return columns.last > columns.first || (columns.last == columns.first && columns.withNight);
}

/// Two parts of columns that do not stand side by side: the main times and what follows, else two halves.
std::pair<Columns, Columns> halvesOf(Columns columns) {
    int lastOfFirst = (columns.first + columns.last) / 2;
    if (columns.withNight) lastOfFirst = columns.last;
    if (columns.last > lastMainPrayer && columns.first <= lastMainPrayer) lastOfFirst = lastMainPrayer;
    return {{columns.first, lastOfFirst}, {lastOfFirst + 1, columns.last, columns.withNight}};
}

void printColumns(Console& console, const Timetable& table, const std::vector<CityDay>& days, Columns columns,
                  TableNotes& notes) {
    const std::vector<std::string> lines = linesOf(console.session(), days, columns, notes);
    const bool fits =
        std::ranges::all_of(lines, [&](const auto& line) { return displayWidth(line) <= console.width(); });
    if (fits || !canBeSplit(columns)) return printLines(console, table, days, lines);
    const auto [first, second] = halvesOf(columns);
    printColumns(console, table, days, first, notes);
    printColumns(console, table, days, second, notes);
}

void printMonth(Console& console, const Timetable& table, const Month& month, TableNotes& notes) {
    const std::vector<VAKDate> dates = daysOf(month);
    printMonthHead(console, month, dates);
    printColumns(console, table, computedDays(table, dates), {firstPrayer, table.lastCode, table.withNight}, notes);
}

void printClockChanges(Console& console, const Timetable& table) {
    for (const Month& month : table.months) {
        const std::vector<VAKDate> days = daysOf(month);
        const auto change = clockChangeBetween(table.site.clock(), days.front(), days.back());
        if (change) console.print("☀ " + clockChangeText(console.session(), *change));
    }
}

void printTable(Console& console, const Timetable& table) {
    printPlace(console, table.place);
    printMethod(console, table.site);
    console.print();
    TableNotes notes{table.site.clock()};
    for (const Month& month : table.months) printMonth(console, table, month, notes);
    printClockChanges(console, table);
    if (notes.lowest) {
        const std::string note = "* " + latitudeNote(console.session(), *notes.lowest, *notes.highest);
        console.print(console.wrapped(note, 2));
    }
    if (notes.hasIqama) console.print(console.wrapped(_("After the slash: iqama, when the congregation begins.")));
    for (const std::string& line : notes.earlierDay.lines()) console.print(console.wrapped(line, 2));
    for (const std::string& note : notes.missing)
        console.print(console.wrapped(fmt::format("{} {}", formatting::noTime, note), 6));
    printWarnings(console, table.warnings);
    printHowChosen(console, table.place);
}

// --- CSV and JSON

std::string csvNight(const CityDay& day) {
    std::string text;
    for (const NightPartName& part : nightPartNames) {
        const auto hours = nightHours(day, part.hours);
        text += ',';
        if (hours) text += clock24(*hours);
    }
    return text;
}

std::string csvOf(const Timetable& table) {
    std::string night;
    for (const NightPartName& part : nightPartNames) night.append(",").append(part.key);
    std::string text = "date,weekday,hijri," + csvTimesHead() + (table.withNight ? night : "") + '\n';
    for (const Month& month : table.months) {
        for (const CityDay& day : computedDays(table, daysOf(month))) {
            const std::optional<VAKDate> hijri = hijriByTable(day.date);
            text += fmt::format("{},{},{},{}{}\n", isoDate(day.date), weekdayOf(day.date), hijri ? isoDate(*hijri) : "",
                                csvTimes(day), table.withNight ? csvNight(day) : "");
        }
    }
    return text;
}

Json dayJson(Session& session, const CityDay& day) {
    Json::Object times;
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        times.emplace_back(prayerKey(code), timeJson(timeOfPrayer(day, code)));
    }
    Json::Array notes;
    for (const std::string& note : notesOf(day)) notes.emplace_back(note);
    return object({{"date", isoDate(day.date)},
                   {"weekday", weekdayOf(day.date)},
                   {"hijri", hijriJson(session, hijriByTable(day.date), "table")},
                   {"utc_offset", day.GMTValue},
                   {"summer_time", day.isDSTTime},
                   {"prayers", Json(std::move(times))},
                   {"iqama", iqamaJson(day)},
                   {"night", nightJson(day)},
                   {"computed_latitude", computedLatitude(day)},
                   {"method", methodJson(day)},
                   {"notes", notes}});
}

Json jsonOf(Session& session, const Timetable& table) {
    Json::Array days;
    for (const Month& month : table.months) {
        for (const CityDay& day : computedDays(table, daysOf(month))) days.push_back(dayJson(session, day));
    }
    return object({{"place", placeJson(table.place)},
                   {"rule", ruleJson(table.site)},
                   {"days", days},
                   {"warnings", warningsJson(table.warnings)}});
}

void print(Console& console, const Arguments& arguments, Timetable table) {
    const bool isFile = isFileFormat(arguments.text("format").value_or(""));
    if (console.wantsJson()) {
        addWarnings(console.session(), table);
        writeText(console, arguments, jsonOf(console.session(), table).text());
    } else if (isFile) {
        writeTimetable(
            console, arguments,
            {table.place, table.months, table.lastCode == lastPrayer, table.withNight, arguments.has("sheet")});
        reportFallbackPlace(console, table.place);
    } else if (arguments.text("format") == "csv") {
        writeText(console, arguments, csvOf(table));
        reportFallbackPlace(console, table.place);
    } else if (arguments.has("output")) {
        throw Failure(ExitCode::usage, _("The table is for the terminal. Name a format for the file: --format pdf"));
    } else {
        addWarnings(console.session(), table);
        printTable(console, table);
    }
}

void runMonth(Console& console, const Arguments& arguments) {
    const std::optional<std::string> request = arguments.text("YYYY-MM");
    std::vector<Month> months;
    if (request) months.push_back(parseMonth(*request));
    Timetable table = timetableOf(console.session(), arguments, months);
    if (!request) table.months = {{table.today.Years, table.today.Months}};
    print(console, arguments, std::move(table));
}

void runYear(Console& console, const Arguments& arguments) {
    const std::optional<std::string> request = arguments.text("YYYY");
    const int requestedYear = request ? parseYear(*request) : 0;
    Timetable table = timetableOf(console.session(), arguments, {});
    const int year = request ? requestedYear : table.today.Years;
    for (int month = 1; month <= 12; ++month) table.months.push_back({year, month});
    print(console, arguments, std::move(table));
}

std::vector<Parameter> parameters(const char* word, const char* help) {
    std::vector<Parameter> all{{Parameter::Kind::word, word, "", help},
                               cityParameter(),
                               {Parameter::Kind::toggle, "all", "", _("All nine times, not only the six main ones")}};
    for (Parameter& parameter : fileParameters()) all.push_back(std::move(parameter));
    for (Parameter& parameter : methodParameters()) all.push_back(std::move(parameter));
    return all;
}

}  // namespace

Command monthCommand() {
    return {"month", _("The timetable of a month"), parameters("YYYY-MM", _("Another month than this one")), runMonth};
}

Command yearCommand() {
    std::vector<Parameter> all = parameters("YYYY", _("Another year than this one"));
    all.push_back({Parameter::Kind::toggle, "sheet", "", _("The whole year on one page of a PDF")});
    return {"year", _("The timetable of a year"), std::move(all), runYear};
}

}  // namespace quode::cli
