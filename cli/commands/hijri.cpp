// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode hijri: the Hijri date of a Gregorian day, and back.
#include "app/crescent_date.h"
#include "app/dates.h"
#include "app/day_view.h"
#include "app/session.h"
#include "cli/commands.h"
#include "common/calendar.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

struct HijriDay {
    VAKDate gregorian;
    VAKDate hijri;
    bool isByCrescent = false;
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
    return fromGregorian(today(session, siteOf(place.city)), arguments.has("crescent"));
}

void runHijri(Session& session, const Arguments& arguments) {
    const HijriDay day = dayOf(session, arguments);
    if (session.wantsJson()) {
        session.printJson(object({{"date", isoDate(day.gregorian)},
                                  {"weekday", weekdayOf(day.gregorian)},
                                  {"hijri", hijriJson(session, day.hijri, day.isByCrescent ? "crescent" : "table")}}));
        return;
    }
    const std::string hijri = hijriText(session, day.hijri) + " (" +
                              std::string(day.isByCrescent ? _("Hijri, by the crescent") : _("Hijri, by the table")) +
                              ")";
    session.print(longDate(session, day.gregorian));
    session.print(hijri);
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
