// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode method import and remove-table: the timetable of a mosque in place of computed times.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "app/alarm_calendar.h"
#include "app/dates.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/user_data.h"
#include "cli/commands.h"
#include "common/formatting.h"
#include "common/numbers.h"
#include "companion/SiteChoices.h"
#include "companion/user_connection.h"
#include "terminal/Console.h"
#include "texts/translation.h"
#include "timetables/best_fit.h"
#include "timetables/import.h"

namespace quode::cli {
namespace {

using timetables::Fit;
using timetables::Import;
using timetables::ImportError;
using timetables::percentOf;

constexpr std::size_t shownProblems = 20, shownFits = 3;

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file.good() && !file.eof()) throw Failure(ExitCode::notFound, _("The file {} cannot be read.", path));
    return content;
}

timetables::ImportOptions optionsOf(const Arguments& arguments) {
    timetables::ImportOptions options;
    if (const auto order = arguments.text("date-order")) {
        options.dateOrder = *order == "day" ? timetables::DateOrder::dayFirst : timetables::DateOrder::monthFirst;
    }
    if (const auto year = arguments.text("year")) options.year = parseYear(*year);
    return options;
}

ChosenPlace cityToChange(Session& session, const Arguments& arguments) {
    const ChosenPlace place = choosePlace(session, arguments.text("city"));
    if (place.city.id != 0) return place;
    throw Failure(ExitCode::usage, _("A timetable is kept for a city. Give the place a name first: quode city add "
                                     "LAT,LON --name NAME"));
}

// --- what is shown

std::string fitText(const Fit& fit) {
    return _("{}: {} % within a minute, {} % exact, worst {} min", fit.key, percentOf(fit.withinOne, fit.times),
             percentOf(fit.exact, fit.times), fit.worst);
}

std::string verdict(const std::vector<Fit>& fits) {
    const Fit& best = fits.front();
    const int percent = percentOf(best.withinOne, best.times);
    constexpr double likely = 90.0;
    if (best.percentWithinOne() >= likely) {
        return _("This looks like {}: {} % within a minute.", best.key, percent);
    }
    return _("No method reproduces this table; the nearest is {} with {} % within a minute.", best.key, percent);
}

std::string rowText(int number, const TimetableRow& row) {
    std::string text = isoDate(std::chrono::sys_days(std::chrono::days(number)));
    for (const auto& minute : row.minutes)
        text.append("  ").append(minute ? clock24(*minute / 60.0) : std::string(formatting::noTime));
    if (row.asrHanafi) text += _("  Hanafi {}", clock24(*row.asrHanafi / 60.0));
    for (std::size_t i = 0; i < row.iqama.size(); ++i) {
        if (!row.iqama[i]) continue;
        const Iqama& iqama = *row.iqama[i];
        const std::string when = iqama.isFixed ? clock24(iqama.minutes / 60.0) : fmt::format("+{}", iqama.minutes);
        const std::string prayer(conventions::nameOf(prayerAt(i)));
        text += "  " + _("{} iqama {}", prayer, when);
    }
    return text;
}

void printPreview(Console& console, const Import& import) {
    console.print(import.format);
    std::string columns;
    for (const auto& [heading, column] : import.columns) {
        columns += (columns.empty() ? "" : ", ") + heading + " = " + timetables::nameOf(column);
    }
    console.print(console.wrapped(_("Columns: {}", columns), 2));
    if (!import.ignored.empty()) {
        std::string ignored;
        for (const std::string& heading : import.ignored) ignored += (ignored.empty() ? "" : ", ") + heading;
        console.print(console.wrapped(_("Not used: {}", ignored), 2));
    }
    if (import.dateOrder == timetables::DateOrder::yearFirst) console.print(_("Dates: the year first"));
    if (import.dateOrder == timetables::DateOrder::dayFirst) console.print(_("Dates: the day first"));
    if (import.dateOrder == timetables::DateOrder::monthFirst) console.print(_("Dates: the month first"));
    if (import.isTwelveHour) console.print(_("Clock: 12 hours without AM and PM; taken by the time of the day"));
    if (import.hasSeconds) console.print(_("Seconds: rounded to the nearest minute, half a minute up"));
    const auto& rows = import.table.rows;
    console.print(_n("{} day", "{} days", rows.size()));
    if (rows.empty()) return;
    console.print();
    std::size_t index = 0;
    constexpr std::size_t fromStart = 3;
    for (const auto& [number, row] : rows) {
        if (index < fromStart || index + 1 == rows.size()) console.print("  " + rowText(number, row));
        if (index == fromStart && rows.size() > fromStart + 1) console.print("  ...");
        ++index;
    }
    console.print();
}

std::string problemText(timetables::RowUnit unit, const timetables::ImportProblem& problem) {
    switch (unit) {
        case timetables::RowUnit::entry:
            return _("Entry {}: {}.", problem.line, problem.text);
        case timetables::RowUnit::event:
            return _("Event {}: {}.", problem.line, problem.text);
        default:
            return _("Line {}: {}.", problem.line, problem.text);
    }
}

void reportProblems(Console& console, const Import& import) {
    for (std::size_t i = 0; i < std::min(import.problems.size(), shownProblems); ++i) {
        console.report(problemText(import.unit, import.problems[i]));
    }
    if (import.problems.size() > shownProblems) {
        console.report(_("... and {} more lines.", import.problems.size() - shownProblems));
    }
}

Json importJson(const Import& import, const std::vector<Fit>& fits, bool isStored) {
    Json::Array problems, methods;
    for (const auto& problem : import.problems) {
        problems.push_back(object({{"line", problem.line}, {"problem", problem.text}}));
    }
    for (const Fit& fit : fits) {
        methods.push_back(object({{"key", fit.key},
                                  {"within_a_minute", fit.percentWithinOne()},
                                  {"times", fit.times},
                                  {"exact", fit.exact},
                                  {"worst_minutes", fit.worst}}));
    }
    return object({{"format", import.format},
                   {"days", int(import.table.rows.size())},
                   {"problems", problems},
                   {"methods", methods},
                   {"stored", isStored}});
}

// --- commands

Import readFile(const std::string& path, const Arguments& arguments, const Site& site) {
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(path, ignored);
    if (!std::filesystem::exists(status)) throw Failure(ExitCode::notFound, _("There is no file {}.", path));
    if (!std::filesystem::is_regular_file(status)) {
        throw Failure(ExitCode::notFound, _("{} is not a regular file. Name a file with a timetable.", path));
    }
    try {
        timetables::SunCheck check(site);
        Import import = timetables::importTable(timetables::readRawTable(contentOf(path), site.clock()),
                                                optionsOf(arguments), check);
        import.table.name = arguments.text("name").value_or(std::filesystem::path(path).stem().string());
        return import;
    } catch (const ImportError& error) {
        throw Failure(ExitCode::usage, path + ": " + error.what());
    }
}

void store(Session& session, const ChosenPlace& place, const Timetable& table) {
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    database.connection().change([&] {
        storeTimetable(database.connection(), place.city.id, table);
        database.refreshPrayerTimes();
    });
    calendar.renew();
}

void runImport(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const ChosenPlace place = cityToChange(session, arguments);
    const Site site = siteOf(place.city);
    const Import import = readFile(arguments.text("FILE").value_or(""), arguments, site);
    const bool isRefused = !import.problems.empty() && !arguments.has("skip-damaged");
    const bool stores = !isRefused && !arguments.has("preview") && !import.table.rows.empty();
    const auto fits = timetables::fitsOf(import.table, site);
    if (!console.wantsJson()) printPreview(console, import);
    reportProblems(console, import);
    if (stores) store(session, place, import.table);
    if (console.wantsJson()) {
        console.printJson(importJson(import, fits, stores));
    } else if (!import.table.rows.empty()) {
        console.print(console.wrapped(verdict(fits)));
        for (std::size_t i = 0; i < shownFits; ++i) console.print("  " + fitText(fits[i]));
    }
    if (isRefused) {
        throw Failure(ExitCode::usage, _("Nothing was imported. Correct these lines, or leave them out with "
                                         "--skip-damaged."));
    }
    if (!console.wantsJson()) {
        console.print();
        console.print(stores ? _("Stored for {}. On other dates the chosen method holds.", place.city.name)
                             : _("This was a preview; nothing was stored."));
    }
}

void runRemoveTable(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const ChosenPlace place = cityToChange(session, arguments);
    if (!place.city.choice.table) {
        throw Failure(ExitCode::notFound, _("No timetable is stored for {}.", place.city.name));
    }
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    database.connection().change([&] {
        forgetTimetable(database.connection(), place.city.id);
        database.refreshPrayerTimes();
    });
    calendar.renew();
    console.print(_("The timetable \"{}\" of {} was removed.", place.city.choice.table->name, place.city.name));
}

}  // namespace

Command methodImportCommand() {
    using Kind = Parameter::Kind;
    Parameter order{Kind::option, "date-order", "ORDER", _("What comes first in dates: day or month")};
    order.choices = {"day", "month"};
    return {"import",
            _("Use the timetable of your mosque (CSV, JSON, iCalendar)"),
            {{Kind::word, "FILE", "", _("The file"), true},
             cityParameter(),
             {Kind::toggle, "preview", "", _("Only show what would be stored")},
             {Kind::option, "name", "NAME", _("What to call the table; else as the file")},
             order,
             {Kind::option, "year", "YYYY", _("The year of dates without one")},
             {Kind::toggle, "skip-damaged", "", _("Leave out damaged lines instead of refusing the file")}},
            runImport};
}

Command methodRemoveTableCommand() {
    return {"remove-table", _("Remove an imported timetable"), {cityParameter()}, runRemoveTable};
}

}  // namespace quode::cli
