// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/printed_times.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/religious_days.h"
#include "app/session.h"
#include "common/formatting.h"
#include "data/city_days.h"
#include "data/iqama.h"
#include "data/night_parts.h"
#include "platform/module.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

using Kind = printing::Column::Kind;

/// What a column shows of a day.
struct Source {
    Kind kind;
    std::string heading;
    int code = 0;                         ///< of a prayer and its congregation
    double NightParts::*night = nullptr;  ///< of a part of the night
};

bool anyIqama(const std::vector<CityDay>& days, int code) {
    return std::ranges::any_of(days, [&](const CityDay& day) { return hasIqama(day, code); });
}

std::vector<Source> sourcesOf(Session& session, const PrintRequest& request, const std::vector<CityDay>& days) {
    std::vector<Source> sources{
        {Kind::weekday, _("Day")}, {Kind::day, _("Date")}, {Kind::hijri, _c("calendar", "Hijri")}};
    const int last = request.allTimes ? lastPrayer : lastMainPrayer;
    for (int code = firstPrayer; code <= last; ++code) {
        sources.push_back({Kind::prayer, session.prayerName(code), code});
        if (anyIqama(days, code)) sources.push_back({Kind::iqama, _("Iqama"), code});
    }
    if (request.withNight) {
        for (const NightPartName& part : nightPartNames) {
            sources.push_back({Kind::night, nightPartLabel(part), 0, part.hours});
        }
    }
    return sources;
}

std::string minuteText(Session& session, const std::optional<int>& minute) {
    return minute ? clockText(session, std::chrono::minutes(*minute)) : "";
}

/// What has to be explained below one page.
struct TableMarks {
    ZoneClock clock;
    Footnotes notes = {};
    std::set<std::string> missing = {};  ///< why there are no times

    void addTo(std::vector<std::string>& remarks) const {
        for (const std::string& line : notes.lines()) remarks.push_back(line);
        for (const std::string& line : missing) remarks.push_back(fmt::format("{} {}", formatting::noTime, line));
    }
};

/// Fills one page.
class MonthWriter {
  public:
    MonthWriter(Session& session, const std::vector<Source>& sources, TableMarks& marks)
        : session_(session), sources_(sources), marks_(marks) {}

    printing::Row row(const CityDay& day) {
        printing::Row row;
        const auto hijri = hijriByTable(day.date);
        row.date = isoDate(day.date);
        row.isFriday = weekdayOf(day.date) == friday;
        if (hijri) noteHijri(day, *hijri, row);
        for (const Source& source : sources_) row.cells.push_back(cell(source, day, hijri));
        return row;
    }

    std::vector<std::string> remarks() const {
        std::vector<std::string> all;
        if (!days_.empty()) all.push_back(days_);
        return all;
    }

  private:
    static constexpr int friday = 5;

    void noteDay(const CityDay& day, const std::string& text) {
        if (!days_.empty()) days_ += "  ·  ";
        days_ += _c("day and what it is", "{0} {1}: {2}", std::to_string(day.date.Days),
                    session_.monthName(day.date.Months), text);
    }

    void noteHijri(const CityDay& day, const VAKDate& hijri, printing::Row& row) {
        if (const auto name = religiousDay(hijri, weekdayOf(day.date))) {
            row.isReligiousDay = true;
            noteDay(day, "★ " + *name);
        }
        if (hijri.Days == 1) noteDay(day, hijriText(session_, hijri));
    }

    std::string cell(const Source& source, const CityDay& day, const std::optional<VAKDate>& hijri) {
        switch (source.kind) {
            case Kind::weekday:
                return session_.shortWeekdayName(weekdayOf(day.date));
            case Kind::day:
                return std::to_string(day.date.Days);
            case Kind::hijri:
                return hijri ? std::to_string(hijri->Days) : "";
            case Kind::iqama:
                return minuteText(session_, iqamaMinute(day, source.code));
            case Kind::night:
                return clockText(session_, nightHours(day, source.night));
            default:
                return prayerCell(day, source.code);
        }
    }

    std::string prayerCell(const CityDay& day, int code) {
        const std::string note = missingPrayerNote(session_, day, code);
        if (!note.empty()) marks_.missing.insert(note);
        return clockText(session_, timeOfPrayer(day, code)) + marks_.notes.latitudeMark(session_, day.times, code) +
               marks_.notes.earlierDayMark(day.times, code) + marks_.notes.sourceMark(day, code) +
               marks_.notes.clockMark(session_, marks_.clock, day, code);
    }

    Session& session_;
    const std::vector<Source>& sources_;
    TableMarks& marks_;
    std::string days_;
};

std::vector<CityDay> computedDays(const Site& site, const std::vector<VAKDate>& dates) {
    std::vector<CityDay> days(dates.size());
    computeDayTimes(site, dates, days);
    return days;
}

void noteClockChange(Session& session, const Site& site, const std::vector<VAKDate>& dates, printing::Page& page) {
    const auto change = clockChangeBetween(site.clock(), dates.front(), dates.back());
    if (change) page.remarks.push_back(clockChangeText(session, *change));
}

std::vector<std::string> notesOf(const ChosenPlace& place, const CityDay& day) {
    const Site site = siteOf(place.city);
    std::vector<std::string> notes;
    const std::string method = methodLine(site);
    if (!method.empty()) notes.push_back(method + ".");
    if (isByEngine(day)) notes.push_back(ruleText(site) + ".");
    for (const std::string& remark : methodRemarks(day)) notes.push_back(remark);
    std::string clock = _("Time zone {}.", place.city.zone);
    clock += ' ';
    clock += _("The Hijri dates are those of the table; the sighting of the crescent may give others.");
    notes.push_back(clock);
    return notes;
}

void fillPages(Session& session, const PrintRequest& request, const std::vector<std::vector<CityDay>>& months,
               const std::vector<Source>& sources, printing::Timetable& table) {
    const TableMarks none{siteOf(request.place.city).clock()};
    TableMarks marks = none;
    for (std::size_t i = 0; i < months.size(); ++i) {
        const Month& month = request.months[i];
        const std::vector<VAKDate> dates = daysOf(month);
        printing::Page page;
        page.heading = fmt::format("{} {}", session.monthName(month.month), month.year);
        page.hijriHeading = hijriMonths(session, dates);
        if (!request.isSheet) marks = none;
        MonthWriter writer(session, sources, marks);
        for (const CityDay& day : months[i]) page.rows.push_back(writer.row(day));
        page.remarks = writer.remarks();
        if (!request.isSheet) marks.addTo(page.remarks);
        noteClockChange(session, siteOf(request.place.city), dates, page);
        table.pages.push_back(std::move(page));
    }
    if (request.isSheet) marks.addTo(table.remarks);
}

template <typename Operation>
Operation* operation(const char* module, const char* symbol) {
    const ModuleSymbol found = loadModule(module, symbol);
    if (found.address) return reinterpret_cast<Operation*>(const_cast<void*>(found.address));
    throw Failure(ExitCode::damagedData,
                  _("The printing part of Quode cannot be loaded: {}. Install Quode again.", found.problem));
}

std::string bytesOf(printing::PrintedFile file) {
    if (file.problem.empty()) return std::move(file.bytes);
    throw Failure(ExitCode::internalError, _("The file could not be made: {}.", file.problem));
}

}  // namespace

std::string hijriMonths(Session& session, const std::vector<VAKDate>& days) {
    std::vector<VAKDate> months;
    for (const VAKDate& date : days) {
        const std::optional<VAKDate> hijri = hijriByTable(date);
        if (hijri && (months.empty() || months.back().Months != hijri->Months)) months.push_back(*hijri);
    }
    std::string text;
    for (std::size_t i = 0; i < months.size(); ++i) {
        const bool isLastOfYear = i + 1 == months.size() || months[i + 1].Years != months[i].Years;
        if (i > 0) text += " / ";
        text += session.hijriMonth(months[i].Months);
        if (isLastOfYear) text += fmt::format(" {}", months[i].Years);
    }
    return text;
}

printing::Timetable printedTimes(Session& session, const PrintRequest& request) {
    const CityRecord& city = request.place.city;
    const Site site = siteOf(city);
    std::vector<std::vector<CityDay>> months;
    std::vector<CityDay> all;
    for (const Month& month : request.months) {
        months.push_back(computedDays(site, daysOf(month)));
        all.insert(all.end(), months.back().begin(), months.back().end());
    }
    const std::vector<Source> sources = sourcesOf(session, request, all);
    printing::Timetable table;
    table.title = _("Prayer times");
    table.place = city.name;
    const std::string region = regionAndCountry(session, city);
    table.placeDetails = (region.empty() ? "" : region + "  ·  ") +
                         coordinatesText(city.latitude, city.longitude, session.decimalMark());
    table.year = std::to_string(request.months.front().year);
    table.language = languageInUse();
    table.isRightToLeft = isRightToLeft(table.language);
    table.made = isoMoment(session.now());
    for (const Source& source : sources) table.columns.push_back({source.kind, source.heading});
    fillPages(session, request, months, sources, table);
    table.notes = notesOf(request.place, all.front());
    return table;
}

std::string printedPdf(const printing::Timetable& timetable, const printing::PdfOptions& options) {
    auto* const print = operation<printing::PrintPdf>("quode-print.so", printing::printPdfSymbol);
    printing::PrintedFile file;
    print(file, timetable, options);
    return bytesOf(std::move(file));
}

printing::Picture printedPage(const printing::Timetable& timetable, const printing::PdfOptions& options,
                              std::size_t page, int width) {
    auto* const draw = operation<printing::DrawPage>("quode-print.so", printing::drawPageSymbol);
    printing::DrawnPage drawn;
    draw(drawn, timetable, options, page, width);
    if (drawn.problem.empty()) return std::move(drawn.picture);
    throw Failure(ExitCode::internalError, _("The page could not be drawn: {}.", drawn.problem));
}

std::string printedCalendar(const printing::PrayerCalendar& calendar) {
    auto* const print = operation<printing::PrintCalendar>("quode-publish.so", printing::printCalendarSymbol);
    printing::PrintedFile file;
    print(file, calendar);
    return bytesOf(std::move(file));
}

}  // namespace quode::app
