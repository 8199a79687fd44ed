// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode today: one day at one place.
#include <fmt/format.h>

#include <cmath>

#include "app/dates.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/next_prayer.h"
#include "app/time_notes.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/method_arguments.h"
#include "cli/page_parts.h"
#include "common/captions.h"
#include "common/formatting.h"
#include "data/iqama.h"
#include "data/night_parts.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr int marginHeight500 = 500, marginHeight250 = 250;  // metres, for the two tables of margins

struct DayPage {
    ChosenPlace place;
    Site site;
    VAKDate today;
    CityDay day;
    std::optional<VAKDate> hijri;
    std::optional<NextPrayer> next;  ///< only on the page of today
    std::optional<ClockChange> change;
    double marginHours = 0.0;
    std::vector<ZoneDisagreement> warnings;
    bool withSeconds = false;
    bool withNight = false;
};

DayPage pageOf(Session& session, const Arguments& arguments) {
    DayPage page;
    const std::optional<VAKDate> requested = requestedDate(arguments);
    page.place = choosePlace(session, arguments.text("city"));
    useMethod(session, arguments, page.place);
    page.site = siteOf(page.place.city);
    page.today = today(session, page.site);
    page.day = computeCityDay(page.site, requested.value_or(page.today));
    page.hijri = hijriByTable(page.day.date);
    if (sameDay(page.day.date, page.today)) page.next = nextPrayer(page.site, session.now());
    page.change = nextClockChange(page.site.clock(), civilDate(page.day.date));
    page.marginHours = FastAstro::Temkin(page.site.latitude, page.site.temkin);
    page.warnings = zoneProblems(session, page.place.city, page.today, page.day.date, page.day.date);
    page.withSeconds = arguments.has("seconds");
    page.withNight = arguments.has("night");
    return page;
}

int marginHeight(const DayPage& page) {
    return page.site.temkin ? marginHeight500 : marginHeight250;
}

// --- text

void printHead(Console& console, const DayPage& page) {
    Session& session = console.session();
    printPlace(console, page.place, true);
    const std::string hijri = page.hijri
                                  ? hijriText(session, *page.hijri) + " (" + std::string(_("Hijri, by the table")) + ")"
                                  : std::string(_("outside the Hijri table"));
    console.print();
    console.print(longDate(session, page.day.date));
    console.print(hijri);
    console.print();
}

std::string remarkOf(std::optional<double> hours) {
    if (!hours) return "";
    if (shownMinute(*hours) >= minutesPerDay) return std::string(_("after midnight"));
    return *hours < 0.0 ? std::string(_("the evening before")) : "";
}

/// Where the coming prayer stands in the table: in the row of its code, or in a row of its own before the first or
/// after the last of the main ones.
enum class NextRow { none, ofYesterday, ofToday, ofTomorrow };

NextRow nextRowOf(const DayPage& page) {
    if (!page.next) return NextRow::none;
    const auto day = civilDate(page.next->date), shown = civilDate(page.day.date);
    return day < shown ? NextRow::ofYesterday : day > shown ? NextRow::ofTomorrow : NextRow::ofToday;
}

struct Row {
    std::vector<std::string> cells;
    bool isNext = false;
    bool isMain = true;
};

Row nextRow(Session& session, const DayPage& page) {
    return {{"›", session.prayerName(page.next->code), clockText(session, page.next->hours, page.withSeconds), "",
             timeLeftText(session, page.site, *page.next)},
            true};
}

Row rowOf(Session& session, const DayPage& page, int code, Footnotes& notes) {
    const auto hours = timeOfPrayer(page.day, code);
    const bool isNext = nextRowOf(page) == NextRow::ofToday && page.next->code == code;
    std::string remark = remarkOf(hours);
    const PrayTimes& times = page.day.times;
    std::string marks = notes.latitudeMark(session, times, code);  // the first to be numbered
    marks += notes.earlierDayMark(times, code);
    marks += notes.sourceMark(page.day, code);
    marks += notes.clockMark(session, page.site.clock(), page.day, code);
    if (const auto iqama = iqamaMinute(page.day, code)) {
        remark += (remark.empty() ? "" : ", ") + _("iqama {}", clockText(session, std::chrono::minutes(*iqama)));
    }
    if (isNext) remark += (remark.empty() ? "" : ", ") + timeLeftText(session, page.site, *page.next);
    return {{isNext ? "›" : " ", session.prayerName(code), clockText(session, hours, page.withSeconds), marks, remark},
            isNext,
            code <= lastMainPrayer};
}

void addNight(Session& session, const DayPage& page, std::vector<Row>& rows) {
    for (const NightPartName& part : nightPartNames) {
        const auto hours = nightHours(page.day, part.hours);
        rows.push_back({{" ", nightPartLabel(part), clockText(session, hours, page.withSeconds), "", remarkOf(hours)},
                        false,
                        false});
    }
}

std::vector<Row> rowsOf(Session& session, const DayPage& page, Footnotes& notes) {
    std::vector<Row> rows;
    if (nextRowOf(page) == NextRow::ofYesterday) rows.push_back(nextRow(session, page));
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        rows.push_back(rowOf(session, page, code, notes));
        if (code == lastMainPrayer && nextRowOf(page) == NextRow::ofTomorrow) rows.push_back(nextRow(session, page));
    }
    if (page.withNight) addNight(session, page, rows);
    return rows;
}

void printTimes(Console& console, const DayPage& page, Footnotes& notes) {
    using Align = TextTable::Align;
    const std::vector<Row> rows = rowsOf(console.session(), page, notes);
    TextTable table({Align::left, Align::left, Align::right, Align::left, Align::left});
    for (const Row& row : rows) table.add(row.cells);
    const std::vector<std::string> lines = table.lines(console.rowWidth());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i].isMain && rows[i - 1].isMain) console.print();
        console.print(rows[i].isNext   ? console.style().strong(lines[i])
                      : rows[i].isMain ? lines[i]
                                       : console.style().dim(lines[i]));
    }
    console.print();
}

std::string zoneRemark(Session& session, const DayPage& page) {
    if (!page.change) return std::string(_("no summer time"));
    return clockChangeText(session, *page.change);
}

std::string marginText(const DayPage& page) {
    const long seconds = std::lround(page.marginHours * 3600.0);
    const std::string margin = _("{} min {:02} s", seconds / 60, seconds % 60);
    return _("The times include a margin (temkin) of {}, for {} m of height; 31 s and more round the minute up.",
             margin, marginHeight(page));
}

void printFacts(Console& console, const DayPage& page) {
    Session& session = console.session();
    using Align = TextTable::Align;
    const SkyTimes sky = skyTimes(page.day);
    const auto clock = [&](std::optional<double> hours) { return clockText(session, hours, page.withSeconds); };
    TextTable table({Align::left, Align::left, Align::left});
    const auto add = [&table](std::string label, std::string value, std::string remark) {
        table.add({std::move(label), std::move(value), std::move(remark)});
    };
    add(session.caption(sunCaption), clock(sky.sunrise) + " / " + clock(sky.sunset), "");
    add(session.caption(moonCaption), clock(sky.moonrise) + " / " + clock(sky.moonset), "");
    add(session.caption(moonAtSunsetCaption), altitudeText(sky.moonAltitudeAtSunset), "");
    add(session.caption(zoneCaption), formatting::GetGMTValueStr(page.day.isDSTTime, page.day.GMTValue),
        zoneRemark(session, page));
    add(session.caption(qiblaCaption), formatting::getQiblaAngleStr(page.day.kible.K),
        std::string(_("clockwise from true north")));
    add(std::string(_("Declination")), session.decimal(page.day.declination, 1, true) + "°",
        _("magnetic, east is +; {} ({})", magneticModel, int(MagneticVariation::modelEpoch)));
    console.print(table, 3);
}

void printNotes(Console& console, const DayPage& page, const Footnotes& notes) {
    Session& session = console.session();
    console.print();
    if (isByEngine(page.day)) {
        console.printRemark(ruleText(page.site) + ".");
        console.printRemark(marginText(page));
    }
    printMethod(console, page.site);
    for (const std::string& remark : methodRemarks(page.day)) console.printRemark(remark);
    for (const std::string& line : notes.lines()) console.print(console.wrapped(line, 2));
    for (const std::string& note : missingNotes(session, page.day)) console.print(console.wrapped(note, 2));
    printWarnings(console, page.warnings);
    if (const std::string usual = usualMethodNote(session, page.place); !usual.empty()) {
        console.print();
        console.printRemark(usual);
    }
}

void printPage(Console& console, const DayPage& page) {
    Footnotes notes;
    printHead(console, page);
    printTimes(console, page, notes);
    printFacts(console, page);
    printNotes(console, page, notes);
    printHowChosen(console, page.place);
}

// --- JSON

Json prayersJson(Session& session, const CityDay& day) {
    Json::Array prayers;
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        const auto hours = timeOfPrayer(day, code);
        const std::optional<int> iqama = iqamaMinute(day, code);
        const Fallbacks fallbacks = hours ? fallbacksOf(day.times, code) : Fallbacks{};
        prayers.push_back(object({{"code", code},
                                  {"key", prayerKey(code)},
                                  {"name", session.prayerName(code)},
                                  {"time", hours ? Json(clock24(*hours)) : Json()},
                                  {"hours", hours},
                                  {"instant", instantJson(day, hours)},
                                  {"iqama", iqama ? Json(clock24(std::chrono::minutes(*iqama))) : Json()},
                                  {"of_other_latitude", fallbacks.latitude},
                                  {"of_earlier_day", fallbacks.earlierDay}}));
    }
    return prayers;
}

Json zoneJson(const DayPage& page) {
    Json change;
    if (page.change) {
        change = object({{"date", isoDate(page.change->date)}, {"to_summer_time", page.change->toSummerTime}});
    }
    return object({{"name", page.place.city.zone},
                   {"offset_hours", page.day.GMTValue},
                   {"offset_text", formatting::GetGMTValueStr(page.day.isDSTTime, page.day.GMTValue)},
                   {"summer_time", page.day.isDSTTime},
                   {"next_change", change},
                   {"data", zoneDataJson(page.place.city)}});
}

Json notesJson(Session& session, const DayPage& page) {
    Json::Array notes;
    for (const std::string& note : dayNotes(session, page.place, page.day)) notes.emplace_back(note);
    return notes;
}

Json pageJson(Session& session, const DayPage& page) {
    const Json next = page.next ? nextPrayerJson(session, *page.next) : Json();
    return object({{"place", placeJson(page.place)},
                   {"date", isoDate(page.day.date)},
                   {"weekday", weekdayOf(page.day.date)},
                   {"is_today", sameDay(page.day.date, page.today)},
                   {"hijri", hijriJson(session, page.hijri, "table")},
                   {"prayers", prayersJson(session, page.day)},
                   {"night", nightJson(page.day)},
                   {"next", next},
                   {"sky", skyJson(page.day)},
                   {"zone", zoneJson(page)},
                   {"qibla", qiblaJson(page.day)},
                   {"magnetic_declination", declinationJson(page.day)},
                   {"margin", object({{"minutes", page.marginHours * 60.0}, {"height_metres", marginHeight(page)}})},
                   {"rule", ruleJson(page.site)},
                   {"notes", notesJson(session, page)},
                   {"rounding", "31 seconds and more round the minute up"},
                   {"computed_latitude", computedLatitude(page.day)},
                   {"method", methodJson(page.day)},
                   {"warnings", warningsJson(page.warnings)}});
}

void runToday(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const DayPage page = pageOf(session, arguments);
    if (console.wantsJson()) {
        console.printJson(pageJson(session, page));
    } else {
        printPage(console, page);
    }
}

}  // namespace

Command todayCommand() {
    std::vector<Parameter> parameters{
        cityParameter(),
        dateParameter(),
        {Parameter::Kind::toggle, "seconds", "", _("Show seconds, unrounded")},
        {Parameter::Kind::toggle, "night", "", _("Also the thirds of the night and midnight")}};
    for (Parameter& parameter : methodParameters()) parameters.push_back(std::move(parameter));
    return {"today", _("The times of a day (the default)"), std::move(parameters), runToday};
}

}  // namespace quode::cli
