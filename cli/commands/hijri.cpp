// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode hijri: the Hijri date of a Gregorian day, and back.
#include "app/crescent_date.h"
#include "app/dates.h"
#include "app/day_view.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "common/calendar.h"
#include "common/civil_date.h"
#include "conventions/UmmAlQura.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

struct HijriDay {
    VAKDate gregorian;
    VAKDate hijri;
    bool isByCrescent = false;
    std::optional<ChosenPlace> place = {};  ///< whose day it is, when it is today
};

HijriDay fromHijri(const std::string& text) {
    const VAKDate hijri = parseHijriDate(text);
    const VAKDate gregorian = calendar::JulianToGregorian(calendar::HijriDateToJulian(hijri));
    return {VAKDateMake(gregorian.Days, gregorian.Months, gregorian.Years, 0, 0, 0), hijri};
}

std::string noCrescentDate(const VAKDate& date) {
    constexpr int firstYear = 622;
    if (date.Years <= firstYear) return _("{} is before the start of the Hijri calendar in 622.", isoDate(date));
    return _("No crescent is known for {}: the motion of the Moon is not known that far ahead.", isoDate(date));
}

std::string notInTable(const VAKDate& date) {
    const std::string day = isoDate(date);
    return _("{0} is outside the Hijri table (2008-11-29 to 2048-10-08). Use the crescent: quode hijri --crescent {0}",
             day);
}

HijriDay fromGregorian(const VAKDate& date, bool byCrescent) {
    const std::optional<VAKDate> hijri = byCrescent ? hijriByCrescent(date) : hijriByTable(date);
    if (hijri) return {date, *hijri, byCrescent};
    throw Failure(ExitCode::notFound, byCrescent ? noCrescentDate(date) : notInTable(date));
}

HijriDay dayOf(Session& session, const Arguments& arguments) {
    const auto date = arguments.text("DATE");
    if (const auto hijri = arguments.text("to-gregorian")) {
        if (date || arguments.has("crescent")) {
            throw Failure(ExitCode::usage, _("--to-gregorian works with the table and without another date."));
        }
        return fromHijri(*hijri);
    }
    if (date) return fromGregorian(parseDate(*date), arguments.has("crescent"));
    const ChosenPlace place = choosePlace(session, arguments.text("city"));
    HijriDay day = fromGregorian(today(session, siteOf(place.city)), arguments.has("crescent"));
    day.place = place;
    return day;
}

/// A day by one calendar; nothing where that calendar does not reach it.
struct NamedDate {
    const char* key;
    std::string name;
    std::optional<VAKDate> date;
};

std::vector<NamedDate> calendarsOf(const VAKDate& gregorian) {
    std::optional<VAKDate> ummAlQura;
    if (const auto day = civilDate(gregorian); day.ok()) {
        const int number = int(std::chrono::sys_days(day).time_since_epoch().count());
        const auto hijri = conventions::ummAlQuraDay(number);
        if (hijri) ummAlQura = VAKDateMake(hijri->day, hijri->month, hijri->year, 0, 0, 0);
    }
    return {{"table", _("by the table"), hijriByTable(gregorian)},
            {"crescent", _("by the visibility of the crescent at Mecca"), hijriByCrescent(gregorian)},
            {"umm_al_qura", _("by the Umm al-Qura calendar"), ummAlQura}};
}

/// Other calendars, where they have another date.
void printOthers(Console& console, const HijriDay& day) {
    for (const NamedDate& other : calendarsOf(day.gregorian)) {
        if (other.date && !sameDay(*other.date, day.hijri)) {
            console.print(console.style().dim(hijriText(console.session(), *other.date) + " (" + other.name + ")"));
        }
    }
}

Json calendarsJson(const VAKDate& gregorian) {
    Json::Object calendars;
    for (const NamedDate& each : calendarsOf(gregorian)) {
        calendars.emplace_back(each.key, each.date ? Json(isoDate(*each.date)) : Json());
    }
    return Json(std::move(calendars));
}

void runHijri(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const HijriDay day = dayOf(session, arguments);
    if (console.wantsJson()) {
        console.printJson(object({{"date", isoDate(day.gregorian)},
                                  {"weekday", weekdayOf(day.gregorian)},
                                  {"hijri", hijriJson(session, day.hijri, day.isByCrescent ? "crescent" : "table")},
                                  {"calendars", calendarsJson(day.gregorian)}}));
        return;
    }
    const std::string hijri = hijriText(session, day.hijri) + " (" +
                              std::string(day.isByCrescent ? _("Hijri, by the crescent") : _("Hijri, by the table")) +
                              ")";
    console.print(longDate(session, day.gregorian));
    console.print(hijri);
    printOthers(console, day);
    // The day of a city that was guessed from the time zone is that of the user all the same.
    if (day.place && day.place->source == PlaceSource::fallback) printHowChosen(console, *day.place);
}

}  // namespace

Command hijriCommand() {
    return {"hijri",
            _("The Hijri date of a day, and back"),
            {{Parameter::Kind::word, "DATE", "", _("Another day than today, YYYY-MM-DD")},
             {Parameter::Kind::toggle, "crescent", "", _("By the visibility of the crescent at Mecca")},
             {Parameter::Kind::option, "to-gregorian", "YYYY-MM-DD", _("The Gregorian date of a Hijri day")},
             cityParameter()},
            runHijri};
}

}  // namespace quode::cli
